// Ban, unban and close requests of a room and their replies (family 000E, subtypes 0024, 0025, 0023, 0001). A
// kick is a ban followed, when it succeeds, by an unban.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"
#include "rooms/TimeBan.h"

#include <utility>

namespace halyard {

namespace {

constexpr int NotOwnerChatSend = 116;
constexpr int OwnerImmuneChatSend = 117;

/// The low half of the request id (frame positions 15 and 16), in decimal: the key of RequestIDs.
std::string GetReplyID(const std::string& strPacket) {
    return std::to_string(StrToWord(Mid(strPacket, RequestIDLowAt, 2)).value_or(0));
}

/// What a confirmed request leads to.
struct ReplyRule {
    enum { Eject, Readmit, Kick } act;
    int chatSend; ///< 0: nothing is said
    const char* key;
    bool passesOther;
};

ReplyRule RuleOf(BanKind kind) {
    switch (kind) {
    case BanKind::Ban: return {ReplyRule::Eject, 37, "banned", false};
    case BanKind::Unban: return {ReplyRule::Readmit, 41, "unbanned", false};
    case BanKind::UnbanKick: return {ReplyRule::Readmit, 0, "", false};
    case BanKind::Kick: return {ReplyRule::Kick, 33, "kicked", false};
    case BanKind::Autoban: return {ReplyRule::Eject, 105, "autobanned", true};
    case BanKind::Autoword: return {ReplyRule::Eject, 106, "autowordbanned", true};
    case BanKind::Ghost: return {ReplyRule::Eject, 44, "gbanned", false};
    case BanKind::AutoGhost: return {ReplyRule::Eject, 107, "ghostbanned", false};
    case BanKind::Char: return {ReplyRule::Eject, 108, "charbanned", false};
    case BanKind::ICQ: return {ReplyRule::Eject, 109, "icqbanned", false};
    case BanKind::TimeBan: break;
    }
    return {ReplyRule::Eject, 100, "tbanned", true};
}

// What a refusal says in TLV 0008.
constexpr const char* NotOwner = "0048";
constexpr const char* IsOwner = "0049";

std::string BanRequest(const char* head, std::int32_t id, const std::string& strUser) {
    return HexToStr(head) + WordToStr(id) + MakeTLV("0001", 2, strUser);
}

/// Lines and closes go out under ids of their own, and a refusal of one carries it.
bool IsTaken(std::int32_t id) { return id == 0x05 || id == 0x23; }

constexpr const char* BanHead = "000E002400000000";
constexpr const char* UnbanHead = "000E002500000000";
constexpr const char* CloseID = "35"; // its low half is the type of its TLV

} // namespace

void TillerSock::UpdateRequestID() {
    do CurrentRequestID = CurrentRequestID >= 65535 ? 1 : CurrentRequestID + 1;
    while (Departs(Departure::UnenforcedBans) && IsTaken(CurrentRequestID));
}

BanOutcome TillerSock::BanUser(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                               const std::string& strOther) {
    auto room = Room(intChatIndex);
    if (!room || room->IsRated(1)) return TellDropped(room.get(), intChatIndex, kind, strUser, strOther);
    events.UpdatedStats("totalbanattempt");
    if (telling.news) telling.news->BanWanted(intChatIndex, CurrentRequestID, kind, strUser, strOther);
    if (room->tmrBan && room->tmrBan->Enabled()) {
        room->QueueBan(strUser, intChatIndex, CurrentRequestID, kind, strOther);
        UpdateRequestID();
        return BanOutcome::Waiting;
    }
    auto frame = BanRequest(BanHead, CurrentRequestID, strUser);
    StoreRequest(std::to_string(CurrentRequestID),
                 BanRecord(kind, intChatIndex, CurrentRequestID, strUser, strOther));
    if (telling.news) telling.news->BanAsked(intChatIndex, CurrentRequestID, BanRequestKind::Ban, strUser);
    UpdateRequestID();
    SendPacket(intChatIndex, 2, frame);
    room->StartBanPause();
    return BanOutcome::Asked;
}

BanOutcome TillerSock::UnbanUser(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                                 const std::string& strOther) {
    return AskToUnban(strUser, kind, intChatIndex, strOther, Second::Sent);
}

BanOutcome TillerSock::AskToUnban(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                                  const std::string& strOther, Second half) {
    auto room = Room(intChatIndex);
    if (!room || room->IsRated(1)) return TellDropped(room.get(), intChatIndex, kind, strUser, strOther);
    events.UpdatedStats("totalunbanattempt");
    if (telling.news) telling.news->BanWanted(intChatIndex, CurrentRequestID, kind, strUser, strOther);
    auto frame = BanRequest(UnbanHead, CurrentRequestID, strUser);
    StoreRequest(std::to_string(CurrentRequestID),
                 BanRecord(kind, intChatIndex, CurrentRequestID, strUser, strOther));
    if (telling.news) telling.news->BanAsked(intChatIndex, CurrentRequestID, BanRequestKind::Unban, strUser);
    ConfirmSoon(CurrentRequestID);
    UpdateRequestID();
    if (half == Second::Sent) SendPacket(intChatIndex, 2, frame);
    return BanOutcome::Asked;
}

BanOutcome TillerSock::TellDropped(const Chats* room, std::int16_t intChatIndex, BanKind kind,
                                   const std::string& strUser, const std::string& strOther) {
    const auto why = room ? DropReason::Rated : DropReason::NoRoom;
    if (telling.news) telling.news->BanDropped(intChatIndex, 0, kind, strUser, strOther, why);
    return BanOutcome::Dropped;
}

void TillerSock::CloseChat(std::int16_t intChatIndex) {
    if (intChatIndex == 0) return;
    if (telling.news) telling.news->RoomCloseAsked(intChatIndex);
    SendPacket(intChatIndex, 2, HexToStr("000E0023000000000023") + MakeTLV("0023", 2, "Chat"));
}

void TillerSock::SendBanRequest(std::int16_t intChatIndex, const std::string& strRequestID,
                                const std::string& strUser) {
    auto id = ToInt32(strRequestID);
    if (!id) return;
    if (telling.news) telling.news->BanAsked(intChatIndex, *id, BanRequestKind::Ban, strUser);
    SendPacket(intChatIndex, 2, BanRequest(BanHead, *id, strUser));
}

void TillerSock::BanDropped(const std::string& strRecord, DropReason why) {
    const auto request = ReadBanRecord(strRecord);
    if (!telling.news || !request || !request->kind) return;
    telling.news->BanDropped(request->intChatIndex.value_or(0), ToInt32(request->strRequestID).value_or(0),
                             *request->kind, request->strUser, request->strOther, why);
}

void TillerSock::StoreRequest(const std::string& strRequestID, const std::string& strRecord) {
    // The door would act on a record that an id's earlier round left behind.
    if (confirmsElsewhere) RequestIDs.Remove(strRequestID);
    RequestIDs.Add(strRecord, strRequestID);
}

void TillerSock::RoomUnrated(int intType, const std::string& strChatName, std::int16_t intChatIndex) {
    const CauseBreak apart(telling);
    window.Unrated(intType, strChatName, intChatIndex);
}

void TillerSock::HandleBanReply(int Index, const std::string& strPacket) {
    auto intChatIndex = static_cast<std::int16_t>(Index);
    const auto id = GetReplyID(strPacket);
    const auto pending = ReadBanRecord(RequestIDs.Item(id));
    auto body = Mid(strPacket, BodyAt);
    const bool ofClose = !pending && id == CloseID;
    if (confirmsElsewhere && !ofClose && body != std::string(2, '\0')) return;
    TellBanAnswer(intChatIndex, id, body);
    if (Departs(Departure::UnenforcedBans) && body.size() <= 2 && body != std::string(2, '\0')) {
        RequestIDs.Remove(id);
        return;
    }
    ClearTLVData();
    ParseTLVs(body, TLVData);
    const auto refused = [&](int chatSend) {
        PrepareSends("", "%p", ChatSends.Item(chatSend), "", "help", "msg3", GetChatIndex(intChatIndex));
    };
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (pending && Room(intChatIndex)) {
            auto reason = StrToHex(Mid(value, 3, 2));
            if (type.empty()) {
                ActOnReply(*pending, intChatIndex, Second::Sent);
            } else if (reason == NotOwner) {
                refused(NotOwnerChatSend);
            } else if (reason == IsOwner) {
                refused(OwnerImmuneChatSend);
            }
        }
        RequestIDs.Remove(id);
        return true;
    });
}

/// A reply is two zero bytes, or a refusing word, mostly with what is refused in TLV 0008.
void TillerSock::TellBanAnswer(std::int16_t intChatIndex, const std::string& id, const std::string& body) {
    const auto number = ToInt32(id).value_or(0);
    if (!telling.news || number == 0) return; // 0 is given out to no request
    if (body == std::string(2, '\0'))
        return telling.news->BanAnswered(intChatIndex, number, BanVerdict::Accepted, 0);
    const bool bare = body.size() <= 2;
    const auto word = StrToWord(bare ? body : Mid(body, 7, 2)).value_or(0);
    telling.news->BanAnswered(intChatIndex, number, bare ? BanVerdict::NotEnforced : BanVerdict::Refused,
                              word);
}

void TillerSock::ActOnReply(const BanRecordFields& request, std::int16_t intChatIndex, Second half) {
    if (!request.kind) return;
    const auto kind = *request.kind;
    const auto& strUser = request.strUser;
    const auto& strOther = request.strOther;
    const CauseScope reply(telling, {.kind = CauseKind::Reply,
                                     .room = intChatIndex,
                                     .request = ToInt32(request.strRequestID).value_or(0)});
    const auto rule = RuleOf(kind);
    if (rule.act == ReplyRule::Eject) AddEject(strUser, intChatIndex);
    if (rule.act == ReplyRule::Readmit) RemoveEject(strUser, intChatIndex);
    if (rule.act == ReplyRule::Kick) AskToUnban(strUser, BanKind::UnbanKick, intChatIndex, {}, half);
    if (rule.chatSend != 0)
        PrepareSends(strUser, "%p", ChatSends.Item(rule.chatSend), rule.passesOther ? strOther : "", rule.key,
                     "msg1", GetChatIndex(intChatIndex));
    if (kind != BanKind::TimeBan) return;
    auto room = Room(intChatIndex);
    if (!room) return;
    TimeBans.Add(NewTimeBan(strUser, room->ChatName, room->Exchange, room->Instance, intChatIndex, strOther));
    TellTimeBan(TimeBanStep::Set, TimeBans.Item(static_cast<std::ptrdiff_t>(TimeBans.Count())));
    if (auto timer = timers.TimeBanTimer()) timer->SetEnabled(true);
}

void TillerSock::RequestConfirmed(std::int32_t id) {
    const auto key = std::to_string(id);
    const auto pending = ReadBanRecord(RequestIDs.Item(key));
    RequestIDs.Remove(key); // first, so that nothing that is told of it acts on it again
    if (!pending || !pending->kind || !pending->intChatIndex || !Room(*pending->intChatIndex)) return;
    if (telling.news) telling.news->BanAnswered(*pending->intChatIndex, id, BanVerdict::Accepted, 0);
    ActOnReply(*pending, *pending->intChatIndex, Second::Kept);
}

void TillerSock::RequestRefused(std::int32_t id) {
    const auto key = std::to_string(id);
    const auto pending = ReadBanRecord(RequestIDs.Item(key));
    if (!RequestIDs.Remove(key) || !pending) return;
    if (telling.news)
        telling.news->BanAnswered(pending->intChatIndex.value_or(0), id, BanVerdict::Refused, 0);
}

/// Whoever asked goes on first with what follows from asking.
void TillerSock::ConfirmSoon(std::int32_t id) {
    if (!confirmsElsewhere) return;
    confirmedSoon.push_back(id);
    if (!tmrConfirm) {
        tmrConfirm = platform.NewTimer();
        tmrConfirm->SetInterval(1);
        tmrConfirm->onTick = [this] { ConfirmWaiting(); };
    }
    tmrConfirm->SetEnabled(true);
}

void TillerSock::ConfirmWaiting() {
    tmrConfirm->SetEnabled(false);
    for (const auto id : std::exchange(confirmedSoon, {})) RequestConfirmed(id);
}

} // namespace halyard
