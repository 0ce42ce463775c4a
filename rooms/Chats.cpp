#include "rooms/Chats.h"

#include "base/Text.h"
#include "rooms/TimerTags.h"

namespace halyard {

namespace {

bool IsSendSlot(int Index) { return Index >= 0 && Index < 4; }

} // namespace

Chats::Chats(RoomHost& host, float sngBanPause) : host(host), sngBanPause(sngBanPause) {}

void Chats::UserJoined(const std::string& strUser) {
    const auto name = NormalizeName(strUser);
    if (!name.empty()) PeopleHere.Add(name, name);
}

void Chats::UserLeft(const std::string& strUser) {
    PeopleHere.Remove(std::string_view(NormalizeName(strUser)));
}

bool Chats::JoinTimerEnabled() const { return tmrFirstJoin && tmrFirstJoin->Enabled(); }

void Chats::GotOwner(const std::string& strOwner) {
    if (tmrFirstJoin) blnIsOwner = tmrFirstJoin->Enabled();
    this->strOwner = strOwner;
}

void Chats::SetNewTimer(const std::shared_ptr<PoolTimer>& TheTimer, const std::string& strType) {
    if (!TheTimer) return;
    if (strType == "ban") {
        tmrBan = TheTimer;
        SetBanInterval();
        return;
    }
    const auto* tag = FindTimerTag(strType);
    if (!tag) return;
    TheTimer->SetInterval(tag->milliseconds);
    if (IsSendSlot(tag->sendSlot))
        tmrSend[static_cast<std::size_t>(tag->sendSlot)] = TheTimer;
    else if (strType == "ping")
        tmrPing = TheTimer;
    else if (strType == "unrate")
        tmrUnrate = TheTimer;
    else if (strType == "firstjoin")
        tmrFirstJoin = TheTimer; // the pool starts it
}

void Chats::EnableSendTimer(int Index) {
    if (const auto timer = GetSendTimer(Index)) timer->SetEnabled(true);
}

void Chats::DisableSendTimer(int Index) {
    if (const auto timer = GetSendTimer(Index)) timer->SetEnabled(false);
}

void Chats::SetSendTimerIndex(int Index, int intTimerIndex) {
    if (IsSendSlot(Index)) AssignInt16(SendTimerIndex[static_cast<std::size_t>(Index)], intTimerIndex);
}

int Chats::GetTimerIndex(int Index) const {
    return IsSendSlot(Index) ? SendTimerIndex[static_cast<std::size_t>(Index)] : 0;
}

std::shared_ptr<PoolTimer> Chats::GetSendTimer(int Index) const {
    return IsSendSlot(Index) ? tmrSend[static_cast<std::size_t>(Index)] : nullptr;
}

void Chats::PrepareTerminate() {
    PeopleHere.Clear();
    MsgQueue.Clear();
    BanQueue.Clear();
    tmrBan = nullptr;
    tmrSend.fill(nullptr);
    tmrFirstJoin = nullptr;
    tmrPing = nullptr;
    tmrUnrate = nullptr;
}

} // namespace halyard
