#include "platform/sim/SimClock.h"

#include <algorithm>
#include <utility>

namespace halyard {

SimClock::Ticket SimClock::At(std::int64_t due, std::function<void()> run) {
    auto slot = TakeSlot();
    auto order = ++lastOrder;
    slots[slot].run = std::move(run);
    slots[slot].order = order;
    heap.emplace_back();
    SiftUp(heap.size() - 1, Entry{std::max(due, now), order, slot});
    return Ticket{slot, order};
}

void SimClock::Cancel(Ticket& ticket) {
    if (Waiting(ticket)) {
        auto dropped = std::exchange(slots[ticket.slot].run, nullptr); // may own what cancels other events
        RemoveAt(slots[ticket.slot].place);
    }
    ticket = Ticket{};
}

bool SimClock::Waiting(const Ticket& ticket) const {
    return ticket.order != 0 && slots[ticket.slot].order == ticket.order;
}

void SimClock::RunNext() {
    auto next = heap.front();
    auto run = std::exchange(slots[next.slot].run, nullptr);
    RemoveAt(0);
    MoveTo(next.due);
    ++eventsRun;
    run();
}

std::uint32_t SimClock::TakeSlot() {
    if (freeSlots.empty()) {
        slots.emplace_back();
        return static_cast<std::uint32_t>(slots.size() - 1);
    }
    auto slot = freeSlots.back();
    freeSlots.pop_back();
    return slot;
}

void SimClock::Put(std::size_t place, const Entry& entry) {
    heap[place] = entry;
    slots[entry.slot].place = place;
}

void SimClock::SiftUp(std::size_t place, const Entry& entry) {
    while (place > 0 && entry.Before(heap[(place - 1) / 2])) {
        Put(place, heap[(place - 1) / 2]);
        place = (place - 1) / 2;
    }
    Put(place, entry);
}

void SimClock::SiftDown(std::size_t place, const Entry& entry) {
    for (auto child = 2 * place + 1; child < heap.size(); child = 2 * place + 1) {
        if (child + 1 < heap.size() && heap[child + 1].Before(heap[child])) ++child;
        if (!heap[child].Before(entry)) break;
        Put(place, heap[child]);
        place = child;
    }
    Put(place, entry);
}

void SimClock::RemoveAt(std::size_t place) {
    auto slot = heap[place].slot;
    slots[slot].order = 0;
    freeSlots.push_back(slot);
    auto last = heap.back();
    heap.pop_back();
    if (place == heap.size()) return;
    if (place > 0 && last.Before(heap[(place - 1) / 2]))
        SiftUp(place, last);
    else
        SiftDown(place, last);
}

} // namespace halyard
