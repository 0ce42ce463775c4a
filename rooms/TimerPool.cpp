#include "rooms/TimerPool.h"

#include "base/Text.h"
#include "platform/Platform.h"
#include "rooms/Chats.h"
#include "rooms/TimerTags.h"

namespace halyard {

namespace {

void StoreIndex(Chats& room, const std::string& strType, int Index) {
    if (strType == "ban")
        AssignInt16(room.BanTimerIndex, Index);
    else if (strType == "firstjoin")
        AssignInt16(room.FistJoinIndex, Index);
    else if (strType == "ping")
        AssignInt16(room.PingIndex, Index);
    else if (strType == "unrate")
        AssignInt16(room.UnrateIndex, Index);
    else
        room.SetSendTimerIndex(SendSlotOf(strType), Index);
}

// "msg" and "msg2" go by the timer itself, the others by the stored index; both say the same.
bool Owns(const Chats& room, const std::string& strType, int Index, const std::shared_ptr<PoolTimer>& timer) {
    if (strType == "msg" || strType == "msg2") return room.GetSendTimer(SendSlotOf(strType)) == timer;
    if (strType == "msg1" || strType == "msg3") return room.GetTimerIndex(SendSlotOf(strType)) == Index;
    if (strType == "ban") return room.BanTimerIndex == Index;
    if (strType == "ping") return room.PingIndex == Index;
    if (strType == "unrate") return room.UnrateIndex == Index;
    return false;
}

} // namespace

TimerPool::TimerPool(Platform& platform, const Collection<std::shared_ptr<Chats>>& rooms)
    : platform(platform), rooms(rooms) {
    NewSlot();
}

std::shared_ptr<PoolTimer> TimerPool::NewSlot() {
    const int Index = Count();
    auto slot = std::make_shared<PoolTimer>(platform.NewTimer());
    slot->timer->onTick = [this, Index] { tmrTimer_Timer(Index); };
    tmrTimer.push_back(slot);
    return slot;
}

void TimerPool::CreateTimer(const std::string& strType) {
    int Index = 0;
    while (Index < Count() && !tmrTimer[static_cast<std::size_t>(Index)]->Tag.empty()) ++Index;
    const auto timer = Index < Count() ? Slot(Index) : NewSlot();
    timer->Tag = strType;
    // A slot may come to its new owner still running. It starts stopped whatever it was before, or the
    // leftover of a "ping" would go off every millisecond as a "msg"; "ping" and "firstjoin" are enabled
    // below.
    timer->SetEnabled(false);
    if (strType == "tban") {
        timer->SetInterval(FindTimerTag(strType)->milliseconds);
        timeBanIndex = Index;
        return;
    }
    const auto room = rooms.Item(static_cast<std::ptrdiff_t>(rooms.Count()));
    if (!room) return;
    room->SetNewTimer(timer, strType);
    StoreIndex(*room, strType, Index);
    if (strType == "firstjoin" || strType == "ping") timer->SetEnabled(true);
}

void TimerPool::ClearTimer(int intTimerIndex) {
    const auto timer = Slot(intTimerIndex);
    if (!timer) return;
    if (intTimerIndex == 0 || intTimerIndex + 1 < Count()) {
        timer->Tag.clear(); // not stopped, on purpose: without a tag its firing does nothing
        return;
    }
    timer->SetEnabled(false); // the room may hold on to it a moment longer
    tmrTimer.pop_back();
}

int TimerPool::GetTimer(int Index, const std::string& strType) const {
    const auto timer = Slot(Index);
    if (!timer) return 0;
    int position = 0;
    for (const auto& room : rooms) {
        ++position;
        if (room && Owns(*room, strType, Index, timer)) return position;
    }
    return 0;
}

void TimerPool::UnloadChatTimers(int intChatColIndex) {
    const std::shared_ptr<Chats> room = rooms.Item(intChatColIndex);
    if (!room) return;
    ClearTimer(room->BanTimerIndex);
    for (int slot = 0; slot <= 3; ++slot) ClearTimer(room->GetTimerIndex(slot));
    ClearTimer(room->FistJoinIndex);
    ClearTimer(room->PingIndex);
    ClearTimer(room->UnrateIndex);
    room->PrepareTerminate();
}

std::shared_ptr<PoolTimer> TimerPool::TimeBanTimer() const { return Slot(timeBanIndex); }

std::shared_ptr<PoolTimer> TimerPool::Slot(int Index) const {
    return Index >= 0 && Index < Count() ? tmrTimer[static_cast<std::size_t>(Index)] : nullptr;
}

void TimerPool::tmrTimer_Timer(int Index) {
    const auto timer = Slot(Index); // held: what follows may free the slot, and below, the room
    if (!timer) return;
    const std::string tag = timer->Tag;
    if (tag == "tban") {
        if (onTimeBans) onTimeBans();
        return;
    }
    if (tag == "msg3" || tag == "firstjoin") timer->SetEnabled(false);
    if (tag == "firstjoin") return;
    const std::shared_ptr<Chats> room = rooms.Item(GetTimer(Index, tag));
    if (!room) return;
    if (tag == "unrate")
        room->CheckUnrate();
    else if (tag != "ping")
        room->CheckQueue(tag);
    else if (onPing)
        onPing(room->ChatIndex);
}

} // namespace halyard
