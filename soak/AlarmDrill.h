#pragma once

// Plants what alarms are there for, a kind a day, at a desk where nothing else goes wrong: each has to ring
// once and to end once, and no other may ring. The run owns the one.

#include "soak/watch/AlarmWatch.h"

#include <cstdint>
#include <functional>
#include <string>

namespace halyard {

class Button;
class PracticeNetwork;
class SimWorld;
class TapMachine;
class Town;
class frmMain;
struct DatabaseTap;

class AlarmDrill {
  public:
    struct Hands {
        SimWorld& world;
        TapMachine& machine;
        PracticeNetwork& network;
        DatabaseTap& databases;
        frmMain& window;
        Town& town;
        std::function<void(Button&)> press;
        std::function<void()> joinAll; ///< takes some seconds
        std::function<void(std::int64_t milliseconds)> runFor;
    };
    /// `watch` outlives it. `raids`: nothing but raids.
    AlarmDrill(const Hands& hands, AlarmWatch& watch, bool raids);

    /// Plants the next kind and takes it away again, which takes up to five hours; and says what was wrong
    /// with what rang.
    std::string Next();
    int Count() const { return count; }

  private:
    static constexpr int Kinds = 11;

    /// The name of the alarm that has to ring.
    std::string Plant(int kind);
    void SignOnWith(int refusal);
    void BeOffLine();
    void LoseRoom();
    void FallSilent();
    void BeRated();
    void LoseLines();
    void BeRefusedBans();
    void FailToWrite();
    void FailLedger();
    void Raid();
    const std::string& Room() const;

    Hands hands;
    AlarmWatch& watch;
    const bool raids;
    int count = 0;
};

} // namespace halyard
