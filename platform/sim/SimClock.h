#pragma once

// Virtual time: a queue of events and the moment they have brought about. Time stands still while an event
// runs; events due at the same moment run in the order in which they were set. Owned by SimWorld.

#include <cstdint>
#include <functional>
#include <vector>

namespace halyard {

class SimClock {
  public:
    /// Names one event that was set. A ticket whose event has run or was cancelled names nothing any more.
    struct Ticket {
        std::uint32_t slot = 0;
        std::uint64_t order = 0;
    };

    SimClock() = default;
    SimClock(const SimClock&) = delete;
    SimClock& operator=(const SimClock&) = delete;

    /// Milliseconds since the world began.
    std::int64_t Now() const { return now; }
    /// Runs `run` at the moment `due`, in milliseconds; at once after the running event when that is past.
    Ticket At(std::int64_t due, std::function<void()> run);
    /// Runs `run` in `delay` milliseconds.
    Ticket In(std::int64_t delay, std::function<void()> run) { return At(now + delay, std::move(run)); }
    /// Takes an event out and empties the ticket; without effect when it has run.
    void Cancel(Ticket& ticket);
    bool Waiting(const Ticket& ticket) const;

    /// True when an event is due at `limit` or before.
    bool Due(std::int64_t limit) const { return !heap.empty() && heap.front().due <= limit; }
    /// Runs the next event, moving on to its moment. There must be one.
    void RunNext();
    /// Moves on to a moment before which nothing is due; never back.
    void MoveTo(std::int64_t moment) { now = moment > now ? moment : now; }
    /// How many events have run.
    std::uint64_t EventsRun() const { return eventsRun; }

  private:
    struct Entry {
        std::int64_t due;
        std::uint64_t order;
        std::uint32_t slot;
        bool Before(const Entry& other) const {
            return due != other.due ? due < other.due : order < other.order;
        }
    };
    struct Slot {
        std::function<void()> run;
        std::uint64_t order = 0; // 0 while the slot is free
        std::size_t place = 0;   // in the heap
    };

    std::uint32_t TakeSlot();
    void Put(std::size_t place, const Entry& entry);
    void SiftUp(std::size_t place, const Entry& entry);
    void SiftDown(std::size_t place, const Entry& entry);
    void RemoveAt(std::size_t place);

    std::int64_t now = 0;
    std::uint64_t lastOrder = 0;
    std::uint64_t eventsRun = 0;
    std::vector<Entry> heap;
    std::vector<Slot> slots;
    std::vector<std::uint32_t> freeSlots;
};

} // namespace halyard
