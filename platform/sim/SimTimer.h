#pragma once

// A timer of virtual time. Its moments do not drift: each is one interval after the one before.
// The clock must outlive it.

#include "platform/Timer.h"
#include "platform/sim/SimClock.h"

#include <cstdint>

namespace halyard {

/// The ticks that one machine's timers have had, and the number of the one that is lost, as on a machine that
/// was busy elsewhere: its timer ticks again an interval later. 0: none.
struct SimTicks {
    std::uint64_t had = 0;
    std::uint64_t lost = 0;
};

class SimTimer : public Timer {
  public:
    /// `ticks`, of the machine that it stands on, must outlive it.
    SimTimer(SimClock& clock, SimTicks& ticks) : clock(clock), ticks(ticks) {}
    ~SimTimer() override { clock.Cancel(next); }
    SimTimer(const SimTimer&) = delete;
    SimTimer& operator=(const SimTimer&) = delete;

    /// Below 1 counts as 1.
    void SetInterval(int milliseconds) override;
    int Interval() const override { return interval; }
    void SetEnabled(bool enabled) override;
    bool Enabled() const override { return clock.Waiting(next); }

  private:
    void Start();
    void Tick();

    SimClock& clock;
    SimTicks& ticks;
    SimClock::Ticket next;
    int interval = 1;
};

} // namespace halyard
