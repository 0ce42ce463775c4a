#include "soak/AlarmDrill.h"

#include "platform/sim/SimWorld.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "soak/TapDatabase.h"
#include "soak/TapMachine.h"
#include "soak/Time.h"
#include "soak/Town.h"
#include "surface/frmMain.h"

namespace halyard {

namespace {

constexpr const char* drilled = "harbourbot";

} // namespace

AlarmDrill::AlarmDrill(const Hands& hands, AlarmWatch& watch, bool raids)
    : hands(hands), watch(watch), raids(raids) {}

const std::string& AlarmDrill::Room() const { return hands.town.Rooms().front(); }

std::string AlarmDrill::Next() {
    watch.Rang();
    const auto name = Plant(raids ? Kinds - 1 : count % Kinds);
    ++count;
    hands.runFor(70 * minute); // what is counted by the hour ends within it
    const auto rang = watch.Rang();
    if (rang == name + " began, " + name + " ended") return {};
    return "the drill of " + name + " rang: " + (rang.empty() ? "nothing" : rang);
}

std::string AlarmDrill::Plant(int kind) {
    switch (kind) {
    case 0: return BeOffLine(), "off-line";
    case 1: return SignOnWith(24), "given-up";
    case 2: return SignOnWith(5), "needs-you";
    case 3: return LoseRoom(), "room-lost";
    case 4: return FallSilent(), "silent";
    case 5: return BeRated(), "rated";
    case 6: return LoseLines(), "lines-dropped";
    case 7: return BeRefusedBans(), "bans-refused";
    case 8: return FailToWrite(), "not-written";
    case 9: return FailLedger(), "not-written";
    default: return Raid(), "raid";
    }
}

void AlarmDrill::BeOffLine() {
    hands.world.network.RefuseConnects(1000);
    hands.network.Levers().Drop(drilled);
    hands.runFor(10 * minute);
    hands.world.network.RefuseConnects(0);
    hands.runFor(5 * minute);
}

void AlarmDrill::SignOnWith(int refusal) {
    auto& connection = hands.window.connection;
    hands.press(connection.cmdSignOff);
    hands.runFor(second);
    hands.network.Levers().RefuseNextSignOn(refusal);
    hands.press(connection.cmdSignOn);
    hands.runFor(10 * minute);
    hands.press(connection.cmdSignOn);
    hands.runFor(10 * second);
    hands.joinAll();
}

void AlarmDrill::LoseRoom() {
    auto& boxes = hands.window.options.Controls;
    const auto set = [&](int value) {
        for (auto* box : {&boxes.chkRejoinKick, &boxes.chkRejoinError}) box->SetValue(value);
    };
    set(0);
    hands.network.Levers().SignOffFromRoom(Room(), drilled);
    hands.runFor(5 * minute);
    set(1);
    hands.joinAll();
}

void AlarmDrill::FallSilent() {
    hands.town.SetActing(false);
    hands.runFor(200 * minute);
    hands.town.SetActing(true);
}

void AlarmDrill::BeRated() {
    for (int time = 0; time < 7; ++time)
        for (const auto code : {RateCode::Limit, RateCode::Clear}) {
            hands.network.Levers().SetRate(Room(), drilled, 1, code);
            hands.runFor(2 * second);
        }
}

void AlarmDrill::LoseLines() {
    auto& levers = hands.network.Levers();
    levers.SetRate(Room(), drilled, 5, RateCode::Limit);
    // Half a minute at most, then the bot frees itself; a clock that runs already does it sooner.
    for (int time = 0; time < 20; ++time) {
        for (int line = 0; line < 20; ++line) levers.Say(Room(), Town::Ops().front(), "op roomboss");
        hands.runFor(second);
    }
    levers.SetRate(Room(), drilled, 5, RateCode::Clear);
}

void AlarmDrill::BeRefusedBans() {
    auto& levers = hands.network.Levers();
    levers.SetOwner(Room(), Town::Ops().front());
    for (const char* name : {"ann", "ben", "cem", "dan"}) {
        levers.Enter(Room(), name);
        levers.Say(Room(), Town::Ops().back(), std::string("ban ") + name);
        hands.runFor(20 * second);
        levers.Leave(Room(), name);
    }
    levers.SetOwner(Room(), drilled);
}

void AlarmDrill::FailToWrite() {
    hands.machine.disk.FailNth(4); // behind the folder's: the new file itself
    hands.runFor(2 * minute);
}

void AlarmDrill::FailLedger() {
    hands.databases.fault = DatabaseFault::Full;
    hands.runFor(30 * minute);
    hands.databases.fault = DatabaseFault::None;
}

void AlarmDrill::Raid() {
    auto& levers = hands.network.Levers();
    levers.SetMaxPeople(Room(), 1000);
    // An op may have taken it off.
    auto& box = hands.window.autobans.txtAddAW;
    hands.window.ByHand(box, [this] { hands.window.Engine().Lists().AddAW("d*mn", 0); });
    for (int newcomer = 0; newcomer < 20; ++newcomer) {
        const auto name = "raider" + std::to_string(count) + "x" + std::to_string(newcomer);
        levers.Enter(Room(), name);
        levers.Say(Room(), name, "d*mn this place");
        hands.runFor(3 * second);
        levers.Leave(Room(), name);
    }
}

} // namespace halyard
