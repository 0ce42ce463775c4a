#pragma once

#include "platform/Timer.h"
#include "practice/people/Script.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class PracticeLevers;
class World;
struct Room;

/// Plays one scene of a script: its people do what its lines say, to the millisecond.
class ScenePlayer {
  public:
    ScenePlayer(World& world, PracticeLevers& levers, Scene scene);

    /// Makes the room and lets in who is there from the beginning.
    void Begin();
    /// A client has come into a room; when it is this one's first, the clock may start.
    void ClientEntered(const Room& entered);

  private:
    void StartClock();
    /// Does what is due, and sets the timer for what comes next.
    void Advance();
    void Perform(const ScriptLine& line);
    void PerformOnNetwork(const ScriptLine& line, const std::string& target);
    std::string Filled(const std::string& text) const;

    World& world;
    PracticeLevers& levers;
    const Scene scene;
    std::unique_ptr<Timer> timer;
    std::int64_t startedAt = 0; ///< ms, of the round that runs
    bool running = false;
    std::size_t next = 0;
    int round = 1;
};

} // namespace halyard
