// Ban, unban and close requests of a room and their replies (family 000E, subtypes 0024, 0025, 0023, 0001). A
// kick is a ban followed, when it succeeds, by an unban.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"
#include "rooms/TimeBan.h"

#include <algorithm>
#include <array>

namespace halyard {

namespace {

constexpr int NotOwnerChatSend = 116;
constexpr int OwnerImmuneChatSend = 117;

/// The low half of the request id (frame positions 15 and 16), in decimal: the key of RequestIDs.
std::string GetReplyID(const std::string& strPacket) {
    return std::to_string(StrToWord(Mid(strPacket, RequestIDLowAt, 2)).value_or(0));
}

/// What a confirmed request of a kind leads to.
struct ReplyRule {
    const char* strType;
    enum { Eject, Readmit, Kick } act;
    int chatSend; ///< 0: nothing is said
    const char* key;
    bool passesOther;
};

constexpr std::array<ReplyRule, 11> ReplyRules{{
    {"ban", ReplyRule::Eject, 37, "banned", false},
    {"unban", ReplyRule::Readmit, 41, "unbanned", false},
    {"unbankick", ReplyRule::Readmit, 0, "", false},
    {"kick", ReplyRule::Kick, 33, "kicked", false},
    {"ab", ReplyRule::Eject, 105, "autobanned", true},
    {"aw", ReplyRule::Eject, 106, "autowordbanned", true},
    {"gban", ReplyRule::Eject, 44, "gbanned", false},
    {"autogban", ReplyRule::Eject, 107, "ghostbanned", false},
    {"char", ReplyRule::Eject, 108, "charbanned", false},
    {"icq", ReplyRule::Eject, 109, "icqbanned", false},
    {"tban", ReplyRule::Eject, 100, "tbanned", true},
}};

std::string RequestRecord(const std::string& strType, std::int16_t intChatIndex, std::int32_t id,
                          const std::string& strUser, const std::string& strOther) {
    return strType + ":" + std::to_string(intChatIndex) + ":" + std::to_string(id) + ":" + strUser + ":" +
           strOther;
}

std::string BanRequest(const char* head, std::int32_t id, const std::string& strUser) {
    return HexToStr(head) + WordToStr(id) + MakeTLV("0001", 2, strUser);
}

constexpr const char* BanHead = "000E002400000000";
constexpr const char* UnbanHead = "000E002500000000";

} // namespace

void TillerSock::UpdateRequestID() {
    CurrentRequestID = CurrentRequestID >= 65535 ? 1 : CurrentRequestID + 1;
}

void TillerSock::BanUser(const std::string& strUser, const std::string& strType, std::int16_t intChatIndex,
                         const std::string& strOther) {
    auto room = Room(intChatIndex);
    if (!room || room->IsRated(1)) return;
    events.UpdatedStats("totalbanattempt");
    if (room->tmrBan && room->tmrBan->Enabled()) {
        room->QueueBan(strUser, intChatIndex, CurrentRequestID, strType, strOther);
        UpdateRequestID();
        return;
    }
    auto frame = BanRequest(BanHead, CurrentRequestID, strUser);
    StoreRequest(std::to_string(CurrentRequestID),
                 RequestRecord(strType, intChatIndex, CurrentRequestID, strUser, strOther));
    UpdateRequestID();
    SendPacket(intChatIndex, 2, frame);
    if (room->tmrBan) room->tmrBan->SetEnabled(true);
}

void TillerSock::UnbanUser(const std::string& strUser, const std::string& strType, std::int16_t intChatIndex,
                           const std::string& strOther) {
    auto room = Room(intChatIndex);
    if (!room || room->IsRated(1)) return;
    events.UpdatedStats("totalunbanattempt");
    auto frame = BanRequest(UnbanHead, CurrentRequestID, strUser);
    StoreRequest(std::to_string(CurrentRequestID),
                 RequestRecord(strType, intChatIndex, CurrentRequestID, strUser, strOther));
    UpdateRequestID();
    SendPacket(intChatIndex, 2, frame);
}

void TillerSock::CloseChat(std::int16_t intChatIndex) {
    if (intChatIndex != 0)
        SendPacket(intChatIndex, 2, HexToStr("000E0023000000000023") + MakeTLV("0023", 2, "Chat"));
}

void TillerSock::SendBanRequest(std::int16_t intChatIndex, const std::string& strRequestID,
                                const std::string& strUser) {
    if (auto id = ToInt32(strRequestID)) SendPacket(intChatIndex, 2, BanRequest(BanHead, *id, strUser));
}

void TillerSock::StoreRequest(const std::string& strRequestID, const std::string& strRecord) {
    RequestIDs.Add(strRecord, strRequestID);
}

void TillerSock::LiftBan(const std::string& strUser, const std::string& strType, std::int16_t intChatIndex) {
    UnbanUser(strUser, strType, intChatIndex);
}

void TillerSock::RoomUnrated(int intType, const std::string& strChatName, std::int16_t intChatIndex) {
    window.Unrated(intType, strChatName, intChatIndex);
}

void TillerSock::HandleBanReply(int Index, const std::string& strPacket) {
    auto intChatIndex = static_cast<std::int16_t>(Index);
    const auto id = GetReplyID(strPacket);
    auto pending = Split(RequestIDs.Item(id), ":", 5); // type, room, id, user, other
    pending.resize(pending.empty() ? 0 : 5);
    auto body = Mid(strPacket, BodyAt);
    ClearTLVData();
    ParseTLVs(body, TLVData);
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (!pending.empty() && Room(intChatIndex)) {
            auto position = GetChatIndex(intChatIndex);
            auto reason = StrToHex(Mid(value, 3, 2));
            if (type.empty()) ActOnReply(pending[0], pending[3], pending[4], intChatIndex);
            if (!type.empty() && reason == "0048")
                PrepareSends("", "%p", ChatSends.Item(NotOwnerChatSend), "", "help", "msg3", position);
            if (!type.empty() && reason == "0049")
                PrepareSends("", "%p", ChatSends.Item(OwnerImmuneChatSend), "", "help", "msg3", position);
        }
        RequestIDs.Remove(id);
        return true;
    });
}

void TillerSock::ActOnReply(const std::string& strType, const std::string& strUser,
                            const std::string& strOther, std::int16_t intChatIndex) {
    auto rule = std::find_if(ReplyRules.begin(), ReplyRules.end(),
                             [&strType](const auto& candidate) { return strType == candidate.strType; });
    if (rule == ReplyRules.end()) return;
    if (rule->act == ReplyRule::Eject) AddEject(strUser, intChatIndex);
    if (rule->act == ReplyRule::Readmit) RemoveEject(strUser, intChatIndex);
    if (rule->act == ReplyRule::Kick) UnbanUser(strUser, "unbankick", intChatIndex);
    if (rule->chatSend != 0)
        PrepareSends(strUser, "%p", ChatSends.Item(rule->chatSend), rule->passesOther ? strOther : "",
                     rule->key, "msg1", GetChatIndex(intChatIndex));
    if (strType != "tban") return;
    auto room = Room(intChatIndex);
    if (!room) return;
    TimeBans.Add(NewTimeBan(strUser, room->ChatName, room->Exchange, room->Instance, intChatIndex, strOther));
    if (auto timer = timers.TimeBanTimer()) timer->SetEnabled(true);
}

} // namespace halyard
