#pragma once

// The people of a long run: they come and go, talk, misbehave, and some of them command the bot, well or
// badly. Each room has a clock of its own; who does what follows from the town's source of chance. The run
// owns it.

#include "platform/sim/SimRandom.h"
#include "practice/Levers.h"
#include "soak/Plan.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

class PracticeNetwork;
class SimWorld;

class Town {
  public:
    Town(SimWorld& world, PracticeNetwork& network, const SoakPlan& plan);

    /// The names of the rooms, normalised.
    const std::vector<std::string>& Rooms() const { return rooms; }
    /// Who is to have every permission, and to be immune.
    static std::vector<std::string> Ops();
    /// Everybody comes in and the talk begins; it goes on for as long as the world runs.
    void Begin();
    /// Off: nobody does anything.
    void SetActing(bool on) { acting = on; }
    /// Off: nobody sends the bot out of a room and in again.
    void SetRejoining(bool on) { rejoining = on; }

  private:
    void Next(std::size_t room);
    void Act(std::size_t room);
    void Talk(std::size_t room);
    void Misbehave(std::size_t room);
    void ComeAndGo(std::size_t room);
    void Command(std::size_t room);
    void CommandBadly(std::size_t room);
    void SendMessage(std::size_t room);
    std::string SomeCommand(std::size_t room);
    void Unban(std::size_t room);
    std::string Person(std::size_t room);
    std::string SomeOp() { return Pick(Ops()); }
    template <typename List>
    std::string Pick(const List& list) {
        return std::string(list[static_cast<std::size_t>(
            random.Between(0, static_cast<std::int64_t>(std::size(list)) - 1))]);
    }

    SimWorld& world;
    PracticeNetwork& network;
    PracticeLevers& levers;
    SimRandom random;
    std::vector<std::string> rooms;
    bool rejoining = true;
    bool acting = true;
    const int peopleInRoom;
    const std::int64_t pause; ///< between two acts in a room, ms, on average
};

} // namespace halyard
