#include "practice/people/ScriptPlayer.h"

#include "base/Text.h"
#include "practice/Levers.h"
#include "practice/World.h"

#include <algorithm>
#include <utility>

namespace halyard {

ScenePlayer::ScenePlayer(World& world, PracticeLevers& levers, Scene scene)
    : world(world), levers(levers), scene(std::move(scene)), timer(world.platform.NewTimer()) {
    timer->onTick = [this] { Advance(); };
}

void ScenePlayer::Begin() {
    auto room = world.rooms.FindOrCreate(scene.exchange, 0, scene.room, world.options.maxPeople);
    if (!room) return;
    room->keep = true;
    if (!scene.owner.empty()) room->owner = scene.owner;
    if (scene.maxPeople > 0) room->maxPeople = scene.maxPeople;
    for (const auto& line : scene.lines)
        if (line.who != "network") levers.BringOnLine(Filled(line.who));
    for (const auto& name : scene.here) levers.Enter(scene.room, name);
    if (scene.fromStart) StartClock();
}

void ScenePlayer::ClientEntered(const Room& entered) {
    auto own = entered.exchange == scene.exchange && SameName(entered.name, scene.room);
    if (own && !running) StartClock();
}

void ScenePlayer::StartClock() {
    running = true;
    startedAt = world.Now();
    Advance();
}

void ScenePlayer::Advance() {
    timer->SetEnabled(false);
    auto elapsed = world.Now() - startedAt;
    while (next < scene.lines.size() && scene.lines[next].milliseconds <= elapsed)
        Perform(scene.lines[next++]);
    auto due = next < scene.lines.size() ? scene.lines[next].milliseconds : scene.repeat;
    if (next == scene.lines.size() && scene.repeat == 0) return;
    if (due <= elapsed) { // the round is over
        next = 0;
        ++round;
        startedAt = world.Now();
        due = scene.lines.empty() ? scene.repeat : scene.lines[0].milliseconds;
        elapsed = 0;
    }
    timer->SetInterval(static_cast<int>(std::max<std::int64_t>(due - elapsed, 1)));
    timer->SetEnabled(true);
}

std::string ScenePlayer::Filled(const std::string& text) const {
    return Replace(text, "%n", std::to_string(round));
}

void ScenePlayer::Perform(const ScriptLine& line) {
    auto who = Filled(line.who);
    auto target = Filled(line.target);
    auto text = Filled(line.text);
    switch (line.verb) {
    case ScriptVerb::Enters: levers.Enter(scene.room, who); break;
    case ScriptVerb::Leaves: levers.Leave(scene.room, who); break;
    case ScriptVerb::Says: levers.Say(scene.room, who, text); break;
    case ScriptVerb::Ims: levers.Message(who, target, text); break;
    case ScriptVerb::Bans: levers.Ban(scene.room, who, target); break;
    case ScriptVerb::Unbans: levers.Unban(scene.room, who, target); break;
    default: PerformOnNetwork(line, target);
    }
}

void ScenePlayer::PerformOnNetwork(const ScriptLine& line, const std::string& target) {
    auto rate = [&](RateCode code) {
        levers.SetRate(scene.room, target, ToInt16(line.text).value_or(0), code);
    };
    switch (line.verb) {
    case ScriptVerb::Limits: return rate(RateCode::Limit);
    case ScriptVerb::Warns: return rate(RateCode::Alert);
    case ScriptVerb::Clears: return rate(RateCode::Clear);
    case ScriptVerb::Pauses: return levers.Pause(target);
    case ScriptVerb::Resumes: return levers.Resume(target);
    case ScriptVerb::Migrates: return levers.Migrate(target);
    case ScriptVerb::Drops: return levers.Drop(target);
    case ScriptVerb::Fills: return levers.Fill(scene.room);
    case ScriptVerb::Closes: return levers.CloseRoom(scene.room);
    default: return;
    }
}

} // namespace halyard
