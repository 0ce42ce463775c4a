#include "rooms/Chats.h"

#include "base/Text.h"
#include "rooms/RoomHost.h"
#include "rooms/TimerTags.h"

namespace halyard {

namespace {

/// By send slot; the first is in no use.
constexpr std::array<Pause, 4> LinePauses{Pause::Lines1, Pause::Lines1, Pause::Lines2, Pause::Lines3};

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
    const auto timer = GetSendTimer(Index);
    if (!timer || timer->Enabled()) return;
    timer->SetEnabled(true);
    if (Index > 0) TellPause(LinePauses[static_cast<std::size_t>(Index)], timer->Interval());
}

void Chats::DisableSendTimer(int Index) {
    const auto timer = GetSendTimer(Index);
    if (!timer || !timer->Enabled()) return;
    timer->SetEnabled(false);
    if (Index > 0) TellPauseEnd(LinePauses[static_cast<std::size_t>(Index)]);
}

void Chats::TellPause(Pause pause, int milliseconds) {
    if (auto* news = host.Tell().news) news->PauseBegan(ChatIndex, pause, milliseconds);
}

void Chats::TellPauseEnd(Pause pause) {
    if (auto* news = host.Tell().news) news->PauseEnded(ChatIndex, pause);
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
    DropLines(LineDrop::Lost);
    DropBans(DropReason::Lost);
    tmrBan = nullptr;
    tmrSend.fill(nullptr);
    tmrFirstJoin = nullptr;
    tmrPing = nullptr;
    tmrUnrate = nullptr;
}

} // namespace halyard
