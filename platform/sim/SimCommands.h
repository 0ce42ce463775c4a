#pragma once

// Programs that do nothing but take their time, written down as they start.

#include "platform/Commands.h"
#include "platform/sim/SimClock.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace halyard {

/// What a machine's programs are like, and which were started.
struct SimPrograms {
    std::int64_t take = 100; ///< ms; longer than the time they have: they are ended
    bool missing = false;    ///< none can be started
    std::vector<CommandLine> started;
};

class SimCommands : public Commands {
  public:
    /// Both outlive it.
    SimCommands(SimClock& clock, SimPrograms& programs) : clock(clock), programs(programs) {}
    ~SimCommands() override;

    bool Run(const CommandLine& command, Done done) override;

  private:
    SimClock& clock;
    SimPrograms& programs;
    std::optional<SimClock::Ticket> end; ///< of the one that runs
};

} // namespace halyard
