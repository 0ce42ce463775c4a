#include "bridge/networks/check/CheckEars.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "oscar/networks/Reach.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/RateTable.h"
#include "oscar/wire/TlvWalk.h"

#include <algorithm>

namespace halyard {

namespace {

// Where things stand in a SNAC, counted from 0.
constexpr std::size_t FlagsOf = 4;
constexpr std::size_t IdOf = 6;
constexpr std::size_t BodyOf = 10;
constexpr std::size_t LineHead = 10; // 8 bytes of cookie and 2 of channel, before a line's TLVs

std::string_view From(std::string_view bytes, std::size_t at) {
    return bytes.substr(std::min(bytes.size(), at));
}

std::uint32_t IdIn(std::string_view snac) {
    return static_cast<std::uint32_t>(StrToLong(From(snac, IdOf)).value_or(0));
}

bool IsOfCheck(std::uint32_t id) { return id == CheckBanId || id == CheckLiftId || id == CheckInfoId; }

bool HasType(std::string_view type, int number) { return StrToWord(type) == number; }

std::string_view TlvValue(std::string_view tlvs, int wanted) {
    std::string_view found;
    EachTLV(tlvs, [&](std::string_view type, std::string_view value) {
        if (HasType(type, wanted)) found = value;
        return found.empty();
    });
    return found;
}

BanReply ReadBanReply(std::string_view body) {
    if (body == std::string_view("\0\0", 2)) return {};
    if (body.size() <= 2) return {BanVerdict::NotEnforced, StrToWord(body).value_or(0)};
    return {BanVerdict::Refused, StrToWord(TlvValue(body.substr(2), 0x0008)).value_or(0)};
}

} // namespace

RatesTold RatesTold::Read(std::string_view body) {
    const auto table = RateTable::Read(body);
    return {table.Known(), table.ClassOf(MessageRequest), table.ClassOf(RoomLineRequest),
            table.ClassOf(BanRequestKey)};
}

void CheckEars::Listen(const TillerSock& to, bool theBot, const std::string& name) {
    heard = {};
    log.Clear();
    control = &to;
    ofBot = theBot;
    ownName = name;
    peer.clear();
    navigation.clear();
    since = platform.Milliseconds();
}

void CheckEars::SignOnStage(const std::string& text) { heard.stage = text; }

void CheckEars::SignOnRefused(int code, const std::string& text) {
    if (ofBot || code < 0) return; // the steps have a shorter deadline of their own
    heard.refused = code == 0 ? -1 : code;
    heard.refusedText = text;
    Tell();
}

void CheckEars::LoggedIn(Text, Text, Text strServerIP) {
    heard.signedOn = true;
    const auto reached = control ? control->Sockets().RemoteAddress(0) : std::string();
    heard.host = reached.empty() ? strServerIP : reached;
    Tell();
}

void CheckEars::SignedOff() {
    if (!control) return;
    if (heard.signedOn)
        heard.ended = "the session ended: the name was signed off";
    else
        heard.letIn = true;
    Tell();
}

void CheckEars::ConnectionEnded(int socket, const std::string& text) {
    if (!control) return;
    if (socket == 0)
        heard.ended = heard.answered ? "the service closed the connection" : "nothing could be reached there";
    else if (!ofBot && heard.room == 0)
        heard.roomRefusal = text;
    Tell();
}

void CheckEars::RoomRefused(int code, const std::string& family, const std::string& text) {
    if (ofBot) return;
    heard.roomRefusal = text + " (family " + family + ", word " + StrToHex(WordToStr(code)) + ")";
    Tell();
}

void CheckEars::RoomLeft(std::int16_t room, const std::string&, const std::string&) {
    if (!control || room != heard.room) return;
    heard.room = 0;
    heard.roomRefusal = "the room's connection was lost";
    Tell();
}

void CheckEars::PersonCame(std::int16_t, const std::string& name) {
    if (heard.people.size() < CheckHeard::MostPeople) heard.people.insert(NormalizeName(name));
    if (name.find_first_of("[]") != std::string::npos || SameName(name, "OnlineHost")) heard.oddName = name;
    Tell();
}

void CheckEars::JoinedChat(Text strChatName, std::int16_t intExchange, std::int16_t,
                           std::int16_t intChatIndex, std::int16_t intMaxPeople,
                           std::int16_t intMaxMessageLength, Text, std::int16_t) {
    heard.room = intChatIndex;
    heard.roomText = strChatName + ", exchange " + std::to_string(intExchange) + ", up to " +
                     std::to_string(intMaxPeople) + " people and lines of " +
                     std::to_string(intMaxMessageLength) + " bytes";
    Tell();
}

void CheckEars::ChatMessage(std::int16_t, Text strScreenname, Text strMessage) {
    if (!SameName(strScreenname, ownName) || !ContainsNoCase(strMessage, Phrase)) return;
    heard.ownLine = true;
    Tell();
}

void CheckEars::InstantMessage(Text strScreenname, Text strMessage, std::int16_t) {
    if (!SameName(strScreenname, ownName) || !ContainsNoCase(strMessage, Phrase)) return;
    heard.ownMessage = true;
    Tell();
}

void CheckEars::IncomingUserInfo(Text strScreenname, std::int16_t, std::int32_t, std::int32_t, Text, Text,
                                 Text) {
    if (!SameName(strScreenname, ownName)) return;
    heard.ownInfo = true;
    Tell();
}

void CheckEars::Frame(int socket, bool sent, int channel, std::string_view body) {
    if (!control) return;
    const bool isSnac = channel != 1 && channel != 4 && body.size() >= BodyOf;
    const bool ours = isSnac && IsOfCheck(IdIn(body));
    if (!ofBot || ours) log.Add(platform.Milliseconds() - since, socket, sent, channel, body);
    if (sent) {
        if (const auto key = isSnac ? SnacKey(body) : ""; key == "000D0002" || key == "000D0008")
            ++navigation[socket];
        return;
    }
    if (ofBot && !ours) return;
    heard.answered = true;
    if (peer.empty()) peer = control->Sockets().RemoteAddress(socket);
    if (channel == 4 && !heard.signedOn) HearAddress(body);
    if (isSnac) HearSnac(socket, body);
    Tell();
}

void CheckEars::HearSnac(int socket, std::string_view snac) {
    const auto key = SnacKey(snac);
    auto body = From(snac, BodyOf);
    // A flagged SNAC has a prefix before its body, of the length that its first word tells.
    if ((static_cast<unsigned char>(snac[FlagsOf]) & 0x80U) != 0)
        body = From(body, 2 + static_cast<std::size_t>(StrToWord(body).value_or(0)));
    const auto word = StrToWord(body).value_or(0);

    if (key == "00170003" || key == "00010005") HearAddress(body);
    if (key == "00010007") heard.rates[socket] = RatesTold::Read(body);
    if (key == "0001000F" && ofBot) heard.ownInfo = true;
    if (key == "00010001" && ofBot) heard.infoError = word;
    if (key == "00020001") heard.infoError = word;
    if (key == "00040001") heard.messageError = word;
    if (key == "000D0009" && navigation[socket]-- <= 0) {
        navigation[socket] = 0;
        ++heard.strayAnswers;
    }
    if (key == "000D0001") {
        if (navigation[socket] > 0) --navigation[socket];
        if (body.size() <= 2) heard.bareRefusal = word;
    }
    if (const auto id = IdIn(snac); key == "000E0001" && IsOfCheck(id))
        heard.banReplies[id] = ReadBanReply(body);
    if (key == "000E0006") HearLine(body);
}

/// An answer that names the next address to connect to, in TLV 0005, and a cookie for it in TLV 0006.
void CheckEars::HearAddress(std::string_view tlvs) {
    if (!TlvValue(tlvs, 0x0006).empty()) heard.cookie = true;
    std::string host;
    std::int32_t port = 0;
    SplitAddress(std::string(TlvValue(tlvs, 0x0005)), host, port);
    if (!host.empty() && ReachableHost(host, peer) != host) heard.farRedirect = host;
}

void CheckEars::HearLine(std::string_view body) {
    bool text = false;
    EachTLV(TlvValue(From(body, LineHead), 0x0005), [&](std::string_view type, std::string_view) {
        if (HasType(type, 0x0001)) text = true;
        if (HasType(type, 0x0002) && text) heard.textFirst = true;
        return true;
    });
}

} // namespace halyard
