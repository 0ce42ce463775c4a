#pragma once

// A long run: the whole bot without a window, the practice network, its people and its faults in one
// simulated world. An operator sits at the desk who signs on, joins the rooms, looks after the lists once an
// hour, saves and loads. The same plan gives the same digest.

#include "bridge/networks/enforcement/Enforcement.h"
#include "practice/PracticeNetwork.h"
#include "soak/AlarmDrill.h"
#include "soak/DayRecord.h"
#include "soak/Faults.h"
#include "soak/Plan.h"
#include "soak/TapDatabase.h"
#include "soak/TapMachine.h"
#include "soak/Town.h"
#include "soak/watch/Invariants.h"
#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace halyard {

class SoakRun {
  public:
    explicit SoakRun(const SoakPlan& plan);

    /// Everything that happens on the network and at the desk, as it happens.
    PracticeListener onEvent;
    DayRecord record;

    /// True when all invariants held to the end.
    bool Run();
    /// Which one broke, and when; empty when none did.
    std::string Violation() const;
    /// Of all that the network and the operator saw; sixteen hex digits.
    std::string Digest() const { return record.Digest(); }
    std::uint64_t Events() const { return world.clock.EventsRun(); }
    int FaultCount() const { return faults.Count(); }
    /// How often the operator had to sign on or join again for the bot (see SignOnAgain and JoinAgain).
    int StepsIn() const { return stepsIn; }
    /// False where there is no database to keep one in, and without a bridge.
    bool HasLedger() const { return static_cast<bool>(machine.databases); }
    /// How often each alarm began; empty without a bridge.
    std::map<AlarmKind, int> AlarmCounts() const;
    /// How many time bans ended, and how.
    std::string TimeBanWords() const;

  private:
    void Arrive();
    void WatchLedger();
    void SwitchGuardsOn();
    bool Hour();
    void WatchAlarms();
    bool Drill();
    bool EndHour(std::int64_t end);
    bool RunFor(std::int64_t milliseconds);
    void LookAfterLists();
    void PressByHand(Button& button);
    void SaveAndLoad();
    void SignOnAgain();
    void NoteTold(const std::string& text);
    void NoteAction(const std::string& action);
    void JoinAgain();
    void FillBoxes();
    void JoinAll();
    void NoteDesk();

    const SoakPlan plan;
    SimWorld world;
    SimPlatform service;
    DatabaseTap databases;
    TapMachine machine;
    PracticeNetwork network;
    frmMain window;
    std::unique_ptr<Bridge> bridge; ///< null without one
    Town town;
    Faults faults;
    Invariants invariants;
    std::optional<AlarmDrill> drill;
    SimRandom random;
    std::optional<Enforcement> enforcement; ///< with the plan's management
    std::set<std::string> leftForGood;      ///< rooms that the bot left by itself and has not come back to
    std::string timeBanWords;               ///< once the bridge has ended
    int stepsIn = 0;
    std::int64_t violatedAt = 0;
};

} // namespace halyard
