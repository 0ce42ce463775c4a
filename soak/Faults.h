#pragma once

// What goes wrong in a long run, as its level and its source of chance say. The run owns the one.

#include "platform/sim/SimRandom.h"
#include "soak/TapMachine.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

class PracticeNetwork;

class Faults {
  public:
    bool openServer = false; ///< the service's habits go wrong in their own way too

    /// Level 0 does nothing ever.
    Faults(SimWorld& world, TapMachine& machine, PracticeNetwork& network, std::vector<std::string> rooms,
           int level);

    /// From now on things go wrong, more of them the higher the level.
    void Begin();
    /// Everything works again, and what was forced is taken back.
    void End();
    bool Running() const { return running; }
    int Count() const { return count; }

  private:
    void Next();
    void Strike();
    void StrikeNetwork(std::int64_t kind);
    void StrikeService(std::int64_t kind);
    const std::string& SomeRoom();
    Socket* SomeSocket();
    /// The rate class of a room's lines.
    int LineClass() const { return openServer ? 2 : 5; }

    SimWorld& world;
    TapMachine& machine;
    PracticeNetwork& network;
    const std::vector<std::string> rooms;
    const int level;
    SimRandom random;
    SimClock::Ticket next;
    bool running = false;
    int count = 0;
};

} // namespace halyard
