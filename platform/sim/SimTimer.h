#pragma once

// A timer of virtual time. Its moments do not drift: each is one interval after the one before.
// The clock must outlive it.

#include "platform/Timer.h"
#include "platform/sim/SimClock.h"

namespace halyard {

class SimTimer : public Timer {
  public:
    explicit SimTimer(SimClock& clock) : clock(clock) {}
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
    SimClock::Ticket next;
    int interval = 1;
};

} // namespace halyard
