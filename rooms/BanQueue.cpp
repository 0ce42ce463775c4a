// Eject requests go out one at a time, a pause apart; here the rest of them wait.

#include "base/Text.h"
#include "rooms/Chats.h"
#include "rooms/RoomHost.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

// No timer interval holds a longer pause, so from here on it is counted off in ticks of a second.
constexpr float longPause = 60;

int BanInterval(float sngBanPause) {
    if (!(sngBanPause < longPause)) return 1000;
    return std::max(1, RoundToInt32(sngBanPause * 1000).value_or(1));
}

} // namespace

void Chats::QueueBan(const std::string& strUser, std::int16_t intChatIndex, std::int32_t lngRequestID,
                     BanKind kind, const std::string& strOther) {
    BanQueue.Add(BanRecord(kind, intChatIndex, lngRequestID, strUser, strOther));
}

void Chats::CheckBanQueue() {
    // The tick that finds the count complete is one more: a pause of 90 seconds takes 91.
    if (sngBanPause < longPause || static_cast<float>(lngBanTicks) >= sngBanPause)
        BanNextUser();
    else
        ++lngBanTicks;
}

void Chats::BanNextUser() {
    if (!blnRated[1]) {
        if (BanQueue.Count() == 0)
            StopBanPause();
        else
            SendOldestBan();
    }
    lngBanTicks = 0;
}

/// The next one takes its whole time.
void Chats::StopBanPause() {
    if (tmrBan && tmrBan->Enabled()) {
        tmrBan->SetEnabled(false);
        TellPauseEnd(Pause::Bans);
    }
    SetBanInterval();
}

void Chats::StartBanPause() {
    if (!tmrBan || tmrBan->Enabled()) return;
    tmrBan->SetEnabled(true);
    TellBanPause();
}

/// How long it is from now.
void Chats::TellBanPause() {
    const auto seconds = static_cast<std::int32_t>(std::min(sngBanPause, 1000000.0F));
    const bool isLong = !(sngBanPause < longPause);
    const auto left = std::max(0, (seconds < sngBanPause ? seconds + 1 : seconds) - lngBanTicks) + 1;
    TellPause(Pause::Bans, isLong ? left * 1000 : BanInterval(sngBanPause));
}

void Chats::SendOldestBan() {
    const auto record = BanQueue.Item(1);
    const auto request = ReadBanRecord(record).value_or(BanRecordFields{});
    host.StoreRequest(request.strRequestID, record);
    host.SendBanRequest(ChatIndex, request.strRequestID, request.strUser);
    StopBanPause();
    lngBanTicks = 0;
    StartBanPause();
    BanQueue.Remove(1);
}

void Chats::DropBans(DropReason why) {
    for (const auto& record : std::exchange(BanQueue, {})) host.BanDropped(record, why);
}

bool Chats::DropBan(std::int32_t lngRequestID) {
    std::ptrdiff_t position = 0;
    for (const auto& waiting : BanQueue) {
        ++position;
        if (ReadBanRecord(waiting).value_or(BanRecordFields{}).strRequestID != std::to_string(lngRequestID))
            continue;
        const std::string record = waiting;
        BanQueue.Remove(position);
        host.BanDropped(record, DropReason::ByHand);
        return true;
    }
    return false;
}

void Chats::SetBanPause(float sngPause) {
    sngBanPause = sngPause;
    SetBanInterval();
    if (tmrBan && tmrBan->Enabled()) TellBanPause(); // its time starts over
}

void Chats::SetBanInterval() {
    if (tmrBan) tmrBan->SetInterval(BanInterval(sngBanPause));
}

} // namespace halyard
