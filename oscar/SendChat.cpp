// What the bot says in rooms (000E 0005).

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "rooms/ChatSends.h"

namespace halyard {

namespace {

constexpr int TooLongChatSend = 120;

/// The details for the operator when `text` is longer than the room takes; empty when it isn't, or when the
/// room has no caps, which only those of 2000 and 512 have. The total counts tags, the visible length does
/// not.
std::string LengthDetails(const std::string& text, std::int16_t maximum) {
    if (maximum != 2000 && maximum != 512) return {};
    std::size_t maxVisible = maximum == 2000 ? 232 : 512;
    auto visible = StripHTML(text).size();
    if (text.size() <= static_cast<std::size_t>(maximum) && visible <= maxVisible) return {};
    return "Max Total Length: " + std::to_string(maximum) +
           ", Max Visible Length: " + std::to_string(maxVisible) +
           ", Current Total Length: " + std::to_string(text.size()) +
           ", Current Total Visible Length: " + std::to_string(visible);
}

} // namespace

void TillerSock::SendChat(std::int16_t intChatIndex, const std::string& strMessage,
                          const std::string& strManual, const std::string& strChatName,
                          std::int16_t intExchange) {
    if (strManual != "manual" && !ChatSendOn) return;
    if (!strChatName.empty()) {
        // The named form sends an empty frame and not the text, on purpose.
        auto wanted = NormalizeName(strChatName);
        for (const auto& room : Chat) {
            if (NormalizeName(room->ChatName) != wanted) continue;
            if (intExchange != 0 && intExchange != room->Exchange) return;
            SendPacket(room->ChatIndex, 2, "");
        }
        return;
    }
    if (!Sock.Has(intChatIndex) || intChatIndex == 0) return;

    auto text = Settings.FontHeader + strMessage;
    if (auto room = Room(intChatIndex)) {
        auto details = LengthDetails(text, room->MaxMessageLength);
        if (!details.empty())
            text = Settings.FontHeader + Replace(ChatSends.Item(TooLongChatSend), "%d", details);
    }
    auto frame =
        HexToStr("000E0005000000000005000000000000") + WordToStr(ChatMessageID) + HexToStr("0003") +
        MakeTLV("0001", 2, "") + MakeTLV("0006", 2, "") +
        MakeTLV("0005", 2,
                MakeTLV("0002", 2, "us-ascii") + MakeTLV("0003", 2, "en") + MakeTLV("0001", 2, text));
    if (++ChatMessageID > 32000) ChatMessageID = 1;
    SendPacket(intChatIndex, 2, frame);
}

void TillerSock::SendAllChats(std::int16_t /*intChatIndex*/, const std::string& strMessage) {
    for (const auto& room : Chat) SendChat(room->ChatIndex, strMessage);
}

void TillerSock::PrepareSends(std::string strReplacement, const std::string& strChar, std::string strMessage,
                              const std::string& strOther, const std::string& strType,
                              const std::string& strMsgType, std::int16_t intChatIndex) {
    // While a settings file is read, and after one of another version, there is no line to say.
    if (strMessage.empty() && ChatSends.Count() == 0) return;
    auto say = [&](std::int16_t position) {
        auto room = Chat.Item(position); // held: the room may end while it speaks
        if (room)
            room->PrepareChatSend(strReplacement, strChar, strMessage, strOther, strType, strMsgType,
                                  intChatIndex);
    };
    if (intChatIndex != 0) return say(intChatIndex);
    for (std::int16_t position = 1; position <= static_cast<std::int16_t>(Chat.Count()); ++position)
        say(position);
}

void TillerSock::DefaultChatSends() { DefaultChatSendTexts(ChatSends); }

} // namespace halyard
