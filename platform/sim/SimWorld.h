#pragma once

// A simulated world: one clock, one network, one source of chance. A test or a rehearsal makes one, then a
// SimPlatform for each party in it. The same seed replays the same run. The world must outlive all made in
// it.

#include "platform/sim/SimClock.h"
#include "platform/sim/SimNetwork.h"
#include "platform/sim/SimRandom.h"

#include <cstdint>
#include <functional>

namespace halyard {

class SimWorld {
  public:
    explicit SimWorld(std::uint64_t seed = 1) : chance(seed), network(clock, chance) {}

    SimRandom chance;
    SimClock clock;
    SimNetwork network;
    /// Runs after every event, for rules that must always hold.
    std::function<void()> afterEvent;

    /// Milliseconds since the world began.
    std::int64_t Now() const { return clock.Now(); }
    /// Runs everything that is due now, and what that sets for now. Not from inside an event, as the others.
    void RunReady() { RunFor(0); }
    /// Lets so many milliseconds pass.
    void RunFor(std::int64_t milliseconds);
    /// Lets time pass until `reached` holds after an event, or already now. False, at the end of
    /// `limit` milliseconds, when it never did.
    bool RunUntil(const std::function<bool()>& reached, std::int64_t limit);

  private:
    void Step();
};

} // namespace halyard
