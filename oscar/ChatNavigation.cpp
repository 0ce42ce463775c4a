// From a room's name to its cookie: the navigation service (family 000D) is brought up once on demand, a room
// is created or found through it, and BOS is asked for the way in (0001 0004). Leaving has no message:
// closing is leaving.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"

#include <algorithm>
#include <array>
#include <utility>

namespace halyard {

namespace {

constexpr const char* UnknownJoinError = "Join chat failed, unknown error.";

using ErrorText = std::pair<const char*, const char*>; // hex word, description

constexpr std::array<ErrorText, 3> NavigationErrors{{
    {"0012", "Join chat failed, you are already in the max amount of chats Oscar allows."},
    {"0033", "Join chat failed, invalid chat name."},
    {"0032", "Join chat failed, objectional chat name."},
}};
constexpr ErrorText AlreadyIn{"002E", "Join chat failed, you are already in this chat."};
constexpr std::array<ErrorText, 5> JoinErrors{{
    {"004A", "Join chat failed, ejected."},
    {"0018", "Join chat failed, full."},
    AlreadyIn,
    {"0030", "Join chat failed, rated."},
    {"0032", "Join chat failed, objectional chat name."},
}};

template <std::size_t Size>
const char* TextOf(const std::array<ErrorText, Size>& texts, const std::string& word, const char* otherwise) {
    for (const auto& [code, text] : texts)
        if (word == code) return text;
    return otherwise;
}

/// True when `room` has bytes for an exchange, a cookie with its length, and an instance.
bool HoldsRoom(const std::string& room) {
    return room.size() >= 3 && room.size() >= 3U + static_cast<unsigned char>(room[2]) + 2U;
}

} // namespace

void TillerSock::JoinChat(const std::string& strChatName, std::int16_t intExchange,
                          std::int16_t intInstance) {
    if (intExchange < 0 ||
        intInstance < 0) { // no word holds them: the frame would be short, and the service hang up
        if (telling.news) telling.news->RoomAsked(strChatName, intExchange);
        Refuse(UnknownJoinError, 0, "000D");
        return;
    }
    const RoomWish wish{Trim(strChatName), intExchange, intInstance};
    if (Departs(Departure::RefusedSecondJoins) && IsIn(wish)) {
        if (telling.news) telling.news->RoomAsked(wish.strName, wish.intExchange);
        return Refuse(AlreadyIn.second, 0x2E, "000D");
    }
    if (telling.news) telling.news->RoomWanted(wish.strName, wish.intExchange);
    if (!WaitsItsTurn(wish)) AskForRoom(wish);
}

bool TillerSock::IsIn(const RoomWish& wish) const {
    return std::any_of(Chat.begin(), Chat.end(), [&wish](const auto& room) {
        return room->Exchange == wish.intExchange && SameName(room->ChatName, wish.strName);
    });
}

void TillerSock::AskForRoom(const RoomWish& wish) {
    if (telling.news) telling.news->RoomAsked(wish.strName, wish.intExchange);
    request.JoinPending = true;
    request.strJoinName = wish.strName;
    request.intJoinExchange = wish.intExchange;
    request.intJoinInstance = wish.intInstance;
    if (indices.ChatNavIndex != 0) {
        SendRoomCreation();
        return;
    }
    SendPacket(indices.BOSIndex, 2, HexToStr("00010004000000000001000D"));
    request.ChatNavPending = true;
}

void TillerSock::SendRoomCreation() {
    ++request.creationsUnanswered;
    SendPacket(indices.ChatNavIndex, 2,
               HexToStr("000D0008000000000008") + WordToStr(request.intJoinExchange) +
                   MakeTLV("", 1, "create") + WordToStr(request.intJoinInstance) + HexToStr("010003") +
                   MakeTLV("00D6", 2, "us-ascii") + MakeTLV("00D3", 2, request.strJoinName) +
                   MakeTLV("00D7", 2, "en"));
}

void TillerSock::HandleNavigation(int Index, const std::string& strPacket) {
    const bool strict = Departs(Departure::NavigationAnswers);
    if (request.ChatNavPending) {
        if (strict && Sock.Tag(Index) != "[Chat_Navigation]connecting") return;
        request.ChatNavPending = false;
        request.creationsUnanswered = 0;
        indices.ChatNavIndex = Index;
        SendServiceReady(Index, "0001000200000000000100010004001008E5000D0001001008E5");
        Sock.SetTag(Index, "[Chat_Navigation]connected");
        ClearService();
        SendRoomCreation();
        return;
    }
    auto body = Mid(strPacket, BodyAt);
    ClearTLVData();
    ParseTLVs(body, TLVData);
    auto room = TLVData.Item(2);
    ClearTLVData();
    if (strict) {
        if (Index != indices.ChatNavIndex || request.creationsUnanswered == 0 || !HoldsRoom(room)) return;
        --request.creationsUnanswered;
    }
    // Exchange, cookie length, cookie, instance.
    if (auto exchange = StrToWord(room)) AssignInt16(request.intJoinExchange, *exchange);
    auto cookieLength = room.size() >= 3 ? static_cast<unsigned char>(room[2]) : 0;
    request.strJoinCookie = Mid(room, 4, cookieLength);
    if (auto instance = StrToWord(Mid(room, 4U + cookieLength)))
        AssignInt16(request.intJoinInstance, *instance);
    // Two zero bytes stand where the instance would: it is always asked for as 0.
    SendPacket(indices.BOSIndex, 2,
               HexToStr("00010004000000000001000E") +
                   MakeTLV("0001", 2,
                           WordToStr(request.intJoinExchange) + MakeTLV("", 1, request.strJoinCookie) +
                               std::string(2, '\0')));
}

void TillerSock::HandleNavigationError(const std::string& strPacket) {
    auto body = Mid(strPacket, BodyAt);
    strLastErrorCode = StrToHex(Left(body, 2));
    body.erase(0, 2);
    ClearTLVData();
    ParseTLVs(body, TLVData);
    bool told = false;
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (type != "0008") return true;
        told = true;
        std::int16_t code = 0;
        if (auto word = StrToWord(value)) AssignInt16(code, *word);
        Refuse(TextOf(NavigationErrors, StrToHex(Left(value, 2)), UnknownJoinError), code, strLastErrorCode);
        return true;
    });
    if (request.creationsUnanswered > 0) --request.creationsUnanswered;
    if (!told && Departs(Departure::BareJoinRefusals)) RefuseBare(HexToStr(strLastErrorCode));
    EndRequest();
}

void TillerSock::RefuseBare(const std::string& strWord) {
    std::int16_t code = 0;
    if (auto word = StrToWord(strWord)) AssignInt16(code, *word);
    Refuse(UnknownJoinError, code, "000D");
}

void TillerSock::HandleJoinError(const std::string& strPacket) {
    auto body = Mid(strPacket, BodyAt);
    const bool prefixed = IsFlagged(strPacket) && body.size() >= 2;
    if (prefixed) body = Mid(body, 4U + static_cast<unsigned char>(body[1])); // a byte behind the prefix
    const bool told = ReadJoinError(body) || (prefixed && ReadJoinError(BodyBehindPrefix(strPacket)));
    if (!told && request.JoinPending && body.size() == 2 && Departs(Departure::BareJoinRefusals))
        RefuseBare(body);
    EndRequest();
}

bool TillerSock::ReadJoinError(std::string strBody) {
    auto family = StrToHex(Left(strBody, 2));
    strBody.erase(0, 2);
    ClearTLVData();
    ParseTLVs(strBody, TLVData);
    auto type = StrToHex(TLVData.Item(1));
    auto value = TLVData.Item(2);
    ClearTLVData();
    if (type != "0008") return false;
    strLastErrorCode = family;
    std::int16_t code = 0;
    if (auto word = StrToWord(value)) AssignInt16(code, *word);
    Refuse(TextOf(JoinErrors, StrToHex(Left(value, 2)), "Unknown Error."), code, strLastErrorCode);
    return true;
}

void TillerSock::LeaveChat(std::int16_t lngChatIndex, const std::string& strChatName,
                           std::int16_t intExchange) {
    bool matched = false;
    if (!strChatName.empty()) {
        auto wanted = NormalizeName(strChatName);
        for (std::int16_t position = 1; position <= static_cast<std::int16_t>(Chat.Count());) {
            auto room = Chat.Item(position);
            if (NormalizeName(room->ChatName) != wanted) {
                ++position;
                continue;
            }
            if (intExchange != 0 && intExchange != room->Exchange) return;
            matched = true;
            Leave(position);
        }
    } else {
        if (!Sock.Has(lngChatIndex) || lngChatIndex == 0) return;
        if (auto position = GetChatIndex(lngChatIndex)) {
            matched = true;
            Leave(position);
        }
    }
    if (!matched) Sock.CloseSock(lngChatIndex);
}

void TillerSock::Leave(std::int16_t intChatColIndex) {
    auto room = Chat.Item(intChatColIndex);
    if (telling.news) telling.news->RoomLeft(room->ChatIndex, room->ChatName, "manual");
    events.LeftChat(room->ChatName, room->Exchange, room->Instance, room->ChatIndex, "manual");
    Sock.CloseSock(room->ChatIndex);
    auto position = GetChatIndex(room->ChatIndex); // the listener may have moved it
    timers.UnloadChatTimers(position);
    Chat.Remove(position);
    if (IsUnderWay({room->ChatName, room->Exchange, room->Instance})) EndRequest(); // left while it opened
}

} // namespace halyard
