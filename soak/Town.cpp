#include "soak/Town.h"

#include "platform/sim/SimWorld.h"
#include "practice/PracticeNetwork.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr const char* talk[] = {"good morning, everyone",
                                "calm water today",
                                "<b>has anybody</b> seen carol?",
                                "who runs this room?",
                                "brb",
                                "the tide turns at nine",
                                "opal rings are pretty",
                                "help me with this knot"};
constexpr const char* badTalk[] = {"FREE STUFF at my page, visit now!!!", "d*mn this d*mn place",
                                   "<a href=\"x\">click here</a>", "you are all lubbers"};
// "%p" is a person of the room.
constexpr const char* commands[] = {
    "kick %p", "ban %p",    "unban %p", "gban %p",  "tban %p,1",  "tban %p,30", "status",   "info %p",
    "op %p",   "unop %p",   "imm %p",   "unimm %p", "ab spam*",   "unab spam*", "ab %p",    "unab %p",
    "aw d*mn", "unaw d*mn", "bl sel",   "bl none",  "bp 1",       "bp .5",      "bp 90",    "lop %p",
    "uop %p",  "limm %p",   "uimm %p",  "lban %p",  "uban %p",    "cb on",      "cb off",   "sc 12",
    "icq on",  "icq off",   "uinfo %p", "help",     "kick %p,%p", "status",     "unban %p", "bl all",
    "bl none", "rejoin",    "bp 1"};
constexpr const char* badCommands[] = {"op",   "ban a",    "tban %p", "tban %p,0",     "bp 10000", "cb maybe",
                                       "sc x", "imm ,,,,", "ab a*b*", "ban %p,%p,%p,", "bl x",     "uinfo a"};

std::string Filled(std::string text, const std::string& person) {
    for (auto at = text.find("%p"); at != std::string::npos; at = text.find("%p"))
        text.replace(at, 2, person);
    return text;
}

} // namespace

Town::Town(SimWorld& world, PracticeNetwork& network, const SoakPlan& plan)
    : world(world), network(network), levers(network.Levers()), random(world.chance.Next()),
      peopleInRoom(std::max(1, plan.people / plan.rooms)), pause(3600000 / plan.LinesAnHour()) {
    for (int room = 1; room <= plan.rooms; ++room) rooms.push_back("room" + std::to_string(room));
}

std::vector<std::string> Town::Ops() { return {"roomboss", "harbourmaster"}; }

void Town::Begin() {
    for (std::size_t room = 0; room < rooms.size(); ++room) {
        for (const auto& op : Ops()) levers.Enter(rooms[room], op);
        for (int person = 1; person <= peopleInRoom; ++person) levers.Enter(rooms[room], Person(room));
        Next(room);
    }
}

/// Some names are numbers, some are long, some begin as the autobans do.
std::string Town::Person(std::size_t room) {
    auto number = std::to_string(static_cast<std::int64_t>(room) * 1000 + random.Between(1, peopleInRoom));
    switch (number.back()) {
    case '3': return "100" + number;
    case '5': return "spammer" + number;
    case '7': return "averylongname" + number;
    default: return "Guest " + number;
    }
}

void Town::Next(std::size_t room) {
    world.clock.In(random.Between(1, 2 * pause), [this, room] {
        if (acting) Act(room);
        Next(room);
    });
}

void Town::Act(std::size_t room) {
    auto dice = random.Between(1, 1000);
    if (dice <= 900) return Talk(room);
    if (dice <= 910) return Misbehave(room);
    if (dice <= 940) return ComeAndGo(room);
    if (dice <= 965) return Command(room);
    if (dice <= 975) return CommandBadly(room);
    if (dice <= 980) return SendMessage(room);
    return Unban(room);
}

/// Who isn't in can't talk: another is asked then, and at last an op.
void Town::Talk(std::size_t room) {
    auto person = Person(room);
    for (int tries = 0; tries < 3 && !network.IsInRoom(rooms[room], person); ++tries) person = Person(room);
    levers.Say(rooms[room], network.IsInRoom(rooms[room], person) ? person : SomeOp(), Pick(talk));
}

void Town::Misbehave(std::size_t room) { levers.Say(rooms[room], Person(room), Pick(badTalk)); }

void Town::ComeAndGo(std::size_t room) {
    auto person = Person(room);
    if (network.IsInRoom(rooms[room], person))
        levers.Leave(rooms[room], person);
    else
        levers.Enter(rooms[room], person);
    for (const auto& op : Ops())
        if (!network.IsInRoom(rooms[room], op)) levers.Enter(rooms[room], op);
}

void Town::Command(std::size_t room) { levers.Say(rooms[room], SomeOp(), SomeCommand(room)); }

std::string Town::SomeCommand(std::size_t room) {
    std::string command = Pick(commands);
    return command == "rejoin" && !rejoining ? "status" : Filled(command, Person(room));
}

void Town::CommandBadly(std::size_t room) {
    auto who = random.Chance(0.5) ? SomeOp() : Person(room);
    levers.Say(rooms[room], who, Filled(Pick(badCommands), Person(room)));
}

void Town::SendMessage(std::size_t room) {
    auto who = random.Chance(0.7) ? SomeOp() : Person(room);
    levers.Message(who, "harbourbot", rooms[room] + ":" + SomeCommand(room));
}

/// An op looks who is banned, and readmits one, who comes back.
void Town::Unban(std::size_t room) {
    auto bans = network.Bans(rooms[room]);
    if (bans.empty()) return ComeAndGo(room);
    auto person = Pick(bans);
    levers.Say(rooms[room], SomeOp(), "unban " + person);
    world.clock.In(20000, [this, room, person] { levers.Enter(rooms[room], person); });
}

} // namespace halyard
