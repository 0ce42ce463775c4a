// What arrives on a room's connection (family 000E, and rate changes of family 0001): lines, people, the
// owner notice.

#include "base/Latin1.h"
#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace halyard {

namespace {

// A line (000E 0006): its TLVs behind 8 bytes of cookie and 2 of channel, and those of its message.
constexpr std::size_t LineAt = BodyAt + 10 - 1; // counted from 0
constexpr std::int64_t MessagesRest = 30000; // ms without messages when no notice clears their class before
constexpr std::string_view SenderTLV("\0\3", 2);
constexpr std::string_view MessageTLV("\0\5", 2);
constexpr std::string_view TextTLV("\0\1", 2);
constexpr std::string_view EncodingTLV("\0\2", 2);

/// What a rate change (0001 000A) says: a code of 2 bytes, a class of 2 bytes, and figures that aren't used.
struct RateChange {
    bool read = false; ///< false when the bytes end before the class
    std::int32_t type = 0;
    std::int32_t classID = 0;

    bool IsKnown() const { return read && type >= 2 && type <= 5 && classID >= 1 && classID <= 5; }
};

RateChange ReadRateNotice(const std::string& body) {
    const auto type = StrToWord(body);
    const auto classID = StrToWord(Mid(body, 3));
    if (!type || !classID) return {};
    return {true, *type, *classID};
}

/// The name at the head of user information: a length of one byte, and the name.
std::string NameIn(std::string_view information) {
    const std::size_t length = information.empty() ? 0 : static_cast<unsigned char>(information[0]);
    return Mid(information, 2, length);
}

} // namespace

void TillerSock::HandleChatMessage(int Index, const std::string& strPacket) {
    using View = std::string_view;
    std::string_view sender;
    std::string_view message;
    EachTLV(View(strPacket).substr(std::min(strPacket.size(), LineAt)), [&](View type, View value) {
        if (type == SenderTLV) sender = value;
        if (type == MessageTLV) message = value;
        return true;
    });
    if (Departs(Departure::WholeMessageBlocks)) return HearWholeBlock(Index, sender, message);
    std::string_view text;
    bool found = false;
    EachTLV(message, [&](View type, View value) {
        if (type == EncodingTLV) strEncoding = value; // holds for later lines that name none
        found = type == TextTLV;
        if (found) text = value;
        return !found;
    });
    ClearTLVData();
    if (!found) return;

    std::string line(text);
    if (strEncoding == "unicode-2-0") std::erase(line, '\0');
    HearLine(Index, NameIn(sender), line);
    ClearTLVData();
}

/// Text and encoding in any order; the first of each counts.
void TillerSock::HearWholeBlock(int Index, std::string_view sender, std::string_view message) {
    std::optional<std::string_view> text;
    std::optional<std::string_view> encoding;
    EachTLV(message, [&](std::string_view type, std::string_view value) {
        if (type == EncodingTLV && !encoding) encoding = value;
        if (type == TextTLV && !text) text = value;
        return true;
    });
    if (!text) return;
    std::string line(*text);
    if (encoding && *encoding == "unicode-2-0") {
        line = FromUtf16(line);
        std::erase(line, '\0'); // nobody sees them, and a word with one in it is no entry's
    }
    HearLine(Index, NameIn(sender), line);
}

void TillerSock::HearLine(int Index, const std::string& name, const std::string& line) {
    const auto intChatIndex = static_cast<std::int16_t>(Index);
    if (telling.lines) telling.lines->LineHeard(intChatIndex, name, line);
    events.ChatMessage(intChatIndex, name, line);
}

void TillerSock::HandlePeople(int Index, const std::string& strPacket, bool joined) {
    constexpr std::size_t BodyStart = 16;
    auto intChatIndex = static_cast<std::int16_t>(Index);
    auto wordAt = [&strPacket](std::size_t at) {
        return at < strPacket.size() ? StrToWord(std::string_view(strPacket).substr(at)).value_or(0) : 0;
    };
    for (std::size_t at = BodyStart; at < strPacket.size();) {
        std::size_t nameLength = static_cast<unsigned char>(strPacket[at]);
        auto name = strPacket.substr(at + 1, nameLength);
        at += 1 + nameLength + 2; // behind the warning level
        auto count = wordAt(at);
        at += 2;
        for (; count > 0 && at < strPacket.size(); --count)
            at += 4 + static_cast<std::size_t>(wordAt(at + 2));
        if (auto room = Room(intChatIndex)) joined ? room->UserJoined(name) : room->UserLeft(name);
        if (telling.news)
            joined ? telling.news->PersonCame(intChatIndex, name)
                   : telling.news->PersonWent(intChatIndex, name);
        joined ? events.UserJoinedChat(intChatIndex, name) : events.UserLeftChat(intChatIndex, name);
    }
}

void TillerSock::HandleOwner(int Index, const std::string& strPacket) {
    auto room = Room(static_cast<std::int16_t>(Index));
    if (!room) return;
    room->GotOwner(Mid(strPacket, BodyAt));
    if (telling.news) telling.news->OwnerTold(room->ChatIndex, room->GetOwner(), room->IsOwner());
    if (room->IsOwner()) events.UpdatedStats("#ofownedchats");
}

void TillerSock::HandleRateChange(int Index, const std::string& strPacket) {
    auto room = Room(static_cast<std::int16_t>(Index));
    if (!room) return;
    auto notice = ReadRateNotice(Mid(strPacket, BodyAt));
    if (IsFlagged(strPacket)) {
        auto rest = Mid(strPacket, BodyAt + 5); // the low byte of the prefix's first length in it
        std::size_t length = rest.empty() ? 0 : static_cast<unsigned char>(rest[0]);
        notice = ReadRateNotice(Mid(rest, 1 + length + 2)); // a byte behind the prefix
        if (!notice.IsKnown()) notice = ReadRateNotice(BodyBehindPrefix(strPacket));
    }
    if (!notice.read) return;
    if (telling.news) telling.news->RateTold(room->ChatIndex, notice.type, notice.classID);
    const auto table = rateTables.find(Index);
    if (!Departs(Departure::RateClassesAsTold)) return room->RateNotice(notice.type, notice.classID);
    if (table == rateTables.end() || !table->second.Known()) {
        if (notice.classID == 1 || notice.classID == 5) room->RateNotice(notice.type, notice.classID);
        return;
    }
    const std::pair<std::uint32_t, int> rated[] = {{BanRequestKey, 1}, {RoomLineRequest, 5}};
    for (const auto& [key, laidDown] : rated) // under the class that the room knows for it
        if (table->second.ClassOf(key) == notice.classID) room->RateNotice(notice.type, laidDown);
}

/// Nothing is laid down for one on the main connection. Its own table says whether it is about messages.
void TillerSock::HandleMainRateChange(const std::string& strPacket) {
    if (!Departs(Departure::RateClassesAsTold)) return;
    const auto notice =
        ReadRateNotice(IsFlagged(strPacket) ? BodyBehindPrefix(strPacket) : Mid(strPacket, BodyAt));
    const auto table = rateTables.find(indices.BOSIndex);
    if (notice.IsKnown() && telling.news) telling.news->RateTold(0, notice.type, notice.classID);
    if (!notice.IsKnown() || table == rateTables.end() || !table->second.Known()) return;
    if (table->second.ClassOf(MessageRequest) != notice.classID) return;
    signOn.MessagesRatedUntil = notice.type <= 3 ? platform.Milliseconds() + MessagesRest : 0;
}

} // namespace halyard
