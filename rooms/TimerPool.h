#pragma once

// The pool of tagged timers on which all pacing of all rooms rides. A slot is free (empty tag), or bound to a
// purpose by its tag and to a room by the index that the room stores. TillerSock owns the one pool.

#include "base/Collection.h"
#include "platform/Timer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Chats;
class Platform;

/// One timer of the pool. Rooms hold references to theirs, so it may outlive its slot.
class PoolTimer {
  public:
    explicit PoolTimer(std::unique_ptr<Timer> timer) : timer(std::move(timer)) {}
    std::string Tag; ///< empty: the slot is free
    void SetInterval(int milliseconds) { timer->SetInterval(milliseconds); }
    int Interval() const { return timer->Interval(); }
    void SetEnabled(bool enabled) { timer->SetEnabled(enabled); }
    bool Enabled() const { return timer->Enabled(); }
    /// Disables and enables: the full interval starts over.
    void Restart() { timer->SetEnabled(false), timer->SetEnabled(true); }

  private:
    friend class TimerPool;
    std::unique_ptr<Timer> timer;
};

class TimerPool {
  public:
    /// `rooms` is the registry whose last room new timers are bound to.
    TimerPool(Platform& platform, const Collection<std::shared_ptr<Chats>>& rooms);

    /// A room's "ping" came due (argument: the room's socket slot); the "tban" timer came due.
    std::function<void(int intChatIndex)> onPing;
    std::function<void()> onTimeBans;

    /// Takes the first free slot, or a new one, tags it, stops it and binds it: "tban" to the pool's own
    /// field, every other tag ("msg", "msg1", "msg2", "msg3", "ban", "firstjoin", "ping", "unrate") to the
    /// room that is last in the registry. "firstjoin" and "ping" run from now on.
    void CreateTimer(const std::string& strType);
    /// Frees a slot: the top one is destroyed; another, and always slot 0, only loses its tag and may go on
    /// firing without effect. A subscript outside the pool does nothing.
    void ClearTimer(int intTimerIndex);
    /// The position of the room that owns slot `Index` under this tag, from 1; 0 when none does and for
    /// "tban".
    int GetTimer(int Index, const std::string& strType) const;
    /// Frees the timers of the room at this position and lets it go of everything. Position 0 does nothing.
    void UnloadChatTimers(int intChatColIndex);

    /// The timer of time bans; null before CreateTimer("tban").
    std::shared_ptr<PoolTimer> TimeBanTimer() const;
    /// Slots in all, and one of them (from 0; null outside).
    int Count() const { return static_cast<int>(tmrTimer.size()); }
    std::shared_ptr<PoolTimer> Slot(int Index) const;

  private:
    void tmrTimer_Timer(int Index);
    std::shared_ptr<PoolTimer> NewSlot();

    Platform& platform;
    const Collection<std::shared_ptr<Chats>>& rooms;
    std::vector<std::shared_ptr<PoolTimer>> tmrTimer; // slot 0 always exists
    int timeBanIndex = -1;
};

} // namespace halyard
