#include "soak/SoakRun.h"

#include "base/Text.h"
#include "bridge/guards/GuardList.h"
#include "commands/RoomByName.h"
#include "soak/Time.h"
#include "state/EjectListFile.h"
#include "state/Permissions.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"

#include <algorithm>

namespace halyard {

namespace {

// Of each hour with faults.
constexpr std::int64_t faultTime = 35 * minute;
/// Behind the last of them a connection may still be at a standstill, and so long a dead one isn't known.
constexpr std::int64_t longestStall = 90 * second;
constexpr std::int64_t deadIsKnown = 75 * second;

/// Between two attempts to enter a room, where a guard makes them.
constexpr std::int64_t longestPause = RoomsAgain::LongestPause;

/// How long the way back may take once nothing goes wrong any more: 75 s until a dead peer is noticed (a ping
/// every 15 s, and 60 s of silence), as much for the main connection, two attempts to sign on, 60 s behind a
/// rated join; and two attempts of 8 s for each room.
std::int64_t WayBack(std::size_t rooms) {
    return (75 + 75 + 30 + 60) * second + static_cast<std::int64_t>(rooms) * 16 * second;
}

Network OpenServer() { return *FindNetwork(BuiltInNetworks(), "Open server"); }

PracticeOptions NetworkOptions(const SoakPlan& plan) {
    PracticeOptions options;
    options.maxPeople = plan.people + 10;
    options.cookieLength = 32; // every cookie draws from the randomness that the rest of the day comes from
    if (plan.openServer) options.ways = OpenServer().ways;
    if (plan.management) options.management = 8080;
    return options;
}

} // namespace

SoakRun::SoakRun(const SoakPlan& plan)
    : plan(plan), world(plan.seed), service(world), machine(world), network(service, NetworkOptions(plan)),
      window(machine), town(world, network, plan), faults(world, machine, network, town.Rooms(), plan.faults),
      invariants(world, machine, network, window, "harbourbot"), random(world.chance.Next()) {
    network.onEvent = [this](const PracticeEvent& event) {
        record.Note("happens", std::to_string(event.milliseconds) + " " + event.room + " " + event.who + " " +
                                   event.what);
        invariants.Happened(event);
        if (onEvent) onEvent(event);
    };
    machine.onSend = [this](std::string_view bytes) { record.Note("sends", bytes); };
    window.counters.lstActions.onInserted = [this](int index) {
        NoteAction(window.counters.lstActions.List(index));
    };
    if (plan.bridge) {
        machine.databases = TappedDatabases(databases);
        invariants.records = &databases;
        bridge = std::make_unique<Bridge>(window);
        invariants.truth.emplace(window, network, bridge->watch.truth, "harbourbot");
        bridge->heard.Add(invariants.truth->forecast);
    }
    world.afterEvent = [this] { invariants.Check(); };
    if (!plan.openServer) return;
    window.Control().UseNetwork(OpenServer());
    faults.openServer = invariants.openServer = true;
    if (!plan.management) return;
    Enforcement::Hands hands;
    hands.spared = [this](const std::string& name) {
        const auto& options = window.options;
        const auto key = NormalizeName(name);
        return !options.Ops.Item(key).empty() || !options.Immunes.Item(key).empty();
    };
    hands.tell = [this](const std::string& text) { NoteTold(text); };
    hands.folder = machine.disk.DataFolder();
    enforcement.emplace(machine, window.Control(), hands);
    window.Control().SetNews(&*enforcement);
    enforcement->SetTerms({.enforce = true});
    invariants.enforced.emplace(
        network, window.Control(),
        EnforcedWatch::Questions{hands.spared, [this] { return enforcement->Waiting(); }});
}

std::string SoakRun::TimeBanWords() const {
    if (!timeBanWords.empty()) return timeBanWords;
    const auto& lifts = invariants.TimeBans();
    if (const auto& guards = invariants.guards)
        return std::to_string(guards->EndedCount()) + " time bans ended, " +
               std::to_string(guards->WaitedCount()) + " of them when their room was there again";
    return std::to_string(lifts.EndedCount()) + " time bans ended, " + std::to_string(lifts.StrandedCount()) +
           " of them when nobody could lift them any more";
}

std::string SoakRun::Violation() const {
    if (invariants.Violation().empty()) return {};
    auto at = violatedAt / second;
    return "day " + std::to_string(at / 86400) + ", " + std::to_string(at / 3600 % 24) + ":" +
           std::to_string(at / 60 % 60) + ":" + std::to_string(at % 60) + ": " + invariants.Violation();
}

bool SoakRun::RunFor(std::int64_t milliseconds) {
    world.RunUntil([this] { return !invariants.Violation().empty(); }, milliseconds);
    violatedAt = world.Now();
    return invariants.Violation().empty();
}

bool SoakRun::Run() {
    Arrive();
    const auto end = static_cast<std::int64_t>(plan.days * static_cast<double>(day));
    while (world.Now() < end && Hour() && Drill()) NoteDesk();
    record.Note("settings", SettingsText(window.options));
    record.Note("chance", std::to_string(world.Now()) + ":" + std::to_string(world.chance.Next()));
    if (invariants.ledger) {
        invariants.ledger->Rest();
        if (invariants.truth) bridge->heard.Remove(invariants.truth->forecast);
        invariants.truth.reset();
        timeBanWords = TimeBanWords();
        invariants.guards.reset();
        bridge.reset();
        invariants.RequireWholeLedger();
    }
    return invariants.Violation().empty();
}

/// What has come to the desk in the last hour.
void SoakRun::NoteDesk() {
    for (const auto& box : machine.dialogs.shown) record.Note("box", box.title + ": " + box.text);
    machine.dialogs.shown.clear();
    machine.desktop.notes.clear();
    record.NoteWindow(window);
    record.NoteFiles(machine.disk);
}

void SoakRun::Arrive() {
    network.Start();
    window.Form_Load();
    if (bridge) bridge->Start();
    if (bridge) WatchAlarms();
    if (plan.guards) SwitchGuardsOn();
    if (plan.ledger && HasLedger()) WatchLedger();
    FillBoxes();
    LookAfterLists();
    window.ByHand(window.autobans.txtAddAB, [this] { window.Engine().Lists().AddAB("spam*", 0); });
    window.ByHand(window.autobans.txtAddAW, [this] { window.Engine().Lists().AddAW("d*mn", 0); });
    if (invariants.alarms) invariants.alarms->SetWanted(true);
    PressByHand(window.connection.cmdSignOn);
    RunFor(5 * second);
    JoinAll();
    town.Begin();
}

void SoakRun::WatchAlarms() {
    constexpr int ordinary = 300; // lines an hour
    const bool quiet = plan.faults == 0 && !plan.drill && !plan.openServer && plan.LinesAnHour() <= ordinary;
    auto& watch = invariants.alarms.emplace(
        bridge->alarms.book, [this] { return window.Control().LoggedOn(); }, quiet);
    if (!plan.drill) return;
    drill.emplace(AlarmDrill::Hands{world, machine, network, databases, window, town,
                                    [this](Button& button) { PressByHand(button); }, [this] { JoinAll(); },
                                    [this](std::int64_t milliseconds) { RunFor(milliseconds); }},
                  watch, plan.raids);
}

/// Once a day, behind an hour like any other.
bool SoakRun::Drill() {
    constexpr int firstHour = 2;
    if (!drill || world.Now() / day < drill->Count() || world.Now() % day < firstHour * hour) return true;
    invariants.Find(drill->Next());
    violatedAt = world.Now();
    return invariants.Violation().empty();
}

std::map<AlarmKind, int> SoakRun::AlarmCounts() const {
    return invariants.alarms ? invariants.alarms->Counts() : std::map<AlarmKind, int>{};
}

void SoakRun::SwitchGuardsOn() {
    for (const auto& row : GuardList())
        if (IsRecommended(row.group))
            window.Control().Switches().SetGuard(row.departure, Departures::Guard::On);
    bridge->guards.SwitchesChanged();
    invariants.guards.emplace(network, window, *bridge);
    if (!invariants.truth) return;
    invariants.truth->awaitedByGuard = [this] {
        const auto rooms = bridge->guards.roomsAgain.List();
        return static_cast<std::size_t>(std::ranges::count(rooms, false, &RoomsAgain::Wanted::inside));
    };
}

void SoakRun::WatchLedger() {
    invariants.ledger.emplace(databases, window.options, plan,
                              [this] { bridge->ledger.Open()->ledger.Flush(); });
}

void SoakRun::FillBoxes() {
    auto& boxes = window.options.Controls;
    window.ByHand(boxes.txtSN, [&] {
        boxes.txtSN.SetText("Harbour Bot");
        boxes.txtPW.SetText("secret");
        for (auto* box : {&boxes.chkAutoLogin, &boxes.chkRejoinKick, &boxes.chkRejoinError, &boxes.chkAWOn,
                          &boxes.chkAutoSave, &boxes.chkAutoSaveBans})
            box->SetValue(1);
        window.options.IMComsOn = true;
        MarkTemplates(window.Control());
    });
}

void SoakRun::JoinAll() {
    for (const auto& room : town.Rooms()) {
        if (network.IsInRoom(room, "harbourbot")) continue;
        window.options.Controls.txtChat.SetText(room);
        PressByHand(window.chats.cmdJoinChat);
        RunFor(5 * second);
    }
}

/// One hour of the run. False once an invariant is broken.
bool SoakRun::Hour() {
    const auto end = world.Now() + hour;
    if (plan.faults > 0) {
        if (invariants.enforced) invariants.enforced->Trust(world.Now() + hour); // not before the faults' end
        if (invariants.truth) invariants.truth->Trust(world.Now() + hour);
        faults.Begin();
        RunFor(faultTime / 2);
        SaveAndLoad();
        RunFor(faultTime - faultTime / 2);
        faults.End();
        if (invariants.enforced) invariants.enforced->Trust(world.Now() + WayBack(town.Rooms().size()));
        if (invariants.truth) invariants.truth->Trust(world.Now() + longestStall + deadIsKnown);
    } else {
        SaveAndLoad();
    }
    town.SetRejoining(false);
    if (plan.guards) { // and nobody helps
        if (!RunFor(WayBack(town.Rooms().size()) + longestPause)) return false;
        return EndHour(end);
    }
    // Twice: a sign-on that was delayed by the faults may end the one after it, also without a word.
    for (int look = 0; look < 2; ++look) {
        const bool silent = !window.Control().LoggedOn() && !window.reconnection.Reconnecting;
        if (silent) SignOnAgain();
        if ((silent || look == 0) && !RunFor(WayBack(town.Rooms().size()))) return false;
    }
    JoinAgain();
    return EndHour(end);
}

/// Everything is well again, or should be.
bool SoakRun::EndHour(std::int64_t end) {
    invariants.RequireBack(town.Rooms());
    violatedAt = world.Now();
    town.SetRejoining(true);
    LookAfterLists();
    if (!RunFor(end - world.Now())) return false;
    invariants.RequireNoGrowth(town.Rooms().size());
    return invariants.Violation().empty();
}

/// A sign-off by the service (channel 4 on the main connection) ends everything without a word to the
/// operator, and a sign-on that the service refuses ends the attempts of a bot that wasn't on line before:
/// both are required. The operator has to see for themselves.
void SoakRun::SignOnAgain() {
    ++stepsIn;
    if (invariants.alarms) invariants.alarms->SetWanted(false);
    PressByHand(window.connection.cmdSignOff);
    RunFor(second);
    if (invariants.alarms) invariants.alarms->SetWanted(true);
    PressByHand(window.connection.cmdSignOn);
    RunFor(10 * second);
    for (const auto& room : town.Rooms()) leftForGood.insert(room); // until it is joined
    JoinAll();
}

void SoakRun::NoteTold(const std::string& text) {
    record.Note("told", text);
    if (onEvent) onEvent({world.Now(), "", "", "told: " + text});
}

void SoakRun::NoteAction(const std::string& action) {
    record.Note("logs", action);
    if (onEvent) onEvent({world.Now(), "", "", action});
    auto parts = Split(action, "'", 3);
    if (parts.size() < 3) return;
    auto room = NormalizeName(parts[1]);
    if (parts[0] == "Left chat ") leftForGood.insert(room);
    if (parts[0] == "Connection to chat " || parts[0] == "Joined chat ") leftForGood.erase(room);
}

/// A room that the command "rejoin" leaves is asked for once. When that goes wrong, or another room is asked
/// for at the same time, nothing brings the bot back, since it left on request: required.
void SoakRun::JoinAgain() {
    for (const auto& room : town.Rooms()) {
        if (!leftForGood.contains(room) || RoomByName(window.Control(), room)) continue;
        ++stepsIn;
        // A dead navigation service is noticed 60 s after it was asked.
        for (int tries = 0; tries < 3 && !RoomByName(window.Control(), room); ++tries) {
            window.options.Controls.txtChat.SetText(room);
            PressByHand(window.chats.cmdJoinChat);
            world.RunUntil([&] { return network.IsInRoom(room, "harbourbot"); }, 80 * second);
            RunFor(5 * second);
        }
    }
}

void SoakRun::LookAfterLists() {
    auto& lists = window.Engine().Lists();
    window.ByHand(window.options.Controls.lstOps, [&] {
        for (const auto& op : Town::Ops()) {
            lists.AddOp(op, 0, FullPerms);
            window.options.SetPerms(op, FullPerms);
            lists.AddImm(op, 0);
            lists.AddLockOp(op, 0);
            lists.AddLockImm(op, 0);
        }
    });
}

void SoakRun::PressByHand(Button& button) {
    window.ByHand(button, [&] { button.Press(); });
}

void SoakRun::SaveAndLoad() {
    auto folder = machine.disk.ProgramFolder();
    switch (random.Between(0, 9)) {
    case 0: WriteSettings(machine, window.options, folder, "run.hys"); break;
    case 1: {
        if (!WriteSettings(machine, window.options, folder, "run.hys")) break;
        ReadSettings({machine, window.options, window.Engine().Lists(), [] {}}, folder, "run.hys");
        FillBoxes(); // no file holds the password; and a file that could not be read leaves the defaults
        break;
    }
    case 2: WriteEjectLists(machine, window.Control(), folder, "run.txt"); break;
    case 3: {
        auto& ejects = window.ejects;
        machine.dialogs.AnswerText(folder + "/run.txt");
        PressByHand(ejects.cmdLoadEjects);
        invariants.ListsLoaded(town.Rooms());
        if (invariants.guards) invariants.guards->ListsLoaded(town.Rooms());
        break;
    }
    default: break;
    }
}

} // namespace halyard
