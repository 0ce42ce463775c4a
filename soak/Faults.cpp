#include "soak/Faults.h"

#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "soak/Time.h"

namespace halyard {

namespace {

constexpr const char* bot = "harbourbot";

} // namespace

Faults::Faults(SimWorld& world, TapMachine& machine, PracticeNetwork& network, std::vector<std::string> rooms,
               int level)
    : world(world), machine(machine), network(network), rooms(std::move(rooms)), level(level),
      random(world.chance.Next()) {}

void Faults::Begin() {
    if (level == 0) return;
    running = true;
    auto& faults = world.network.faults;
    faults.latencyMax = 1 + 40 * level;
    faults.cutBytes = level >= 2;
    faults.stall = 0.0005 * level;
    faults.stallMax = 2000 * level;
    if (level >= 4) faults.drop = 0.0001 * level;
    if (level >= 5) faults.halfOpen = 0.00005 * level;
    if (level >= 3) faults.refuse = 0.03 * level;
    if (level >= 6) faults.silent = 0.03 * level;
    Next();
}

void Faults::End() {
    running = false;
    world.clock.Cancel(next);
    auto& net = world.network;
    net.faults = {};
    net.RefuseConnects(0);
    net.SilentConnects(0);
    net.FailNth(SimNetwork::Operation::Send, 0);
    net.FailNth(SimNetwork::Operation::Connect, 0);
    machine.disk.FailNth(0);
    machine.repeatReplies = 0;
    auto& levers = network.Levers();
    levers.Resume(bot);
    levers.RefuseNextSignOn(0);
    levers.RefuseNextCreation(0);
    levers.RefuseNextJoin(0);
    for (const auto& room : rooms)
        for (int classId : {1, LineClass()}) levers.SetRate(room, bot, classId, RateCode::Clear);
}

/// At level 1 two strokes an hour, at level 9 eighteen.
void Faults::Next() {
    next = world.clock.In(random.Between(1, hour / level), [this] {
        ++count;
        Strike();
        Next();
    });
}

const std::string& Faults::SomeRoom() {
    return rooms[static_cast<std::size_t>(random.Between(0, static_cast<std::int64_t>(rooms.size()) - 1))];
}

Socket* Faults::SomeSocket() {
    const auto& all = machine.Sockets();
    if (all.empty()) return nullptr;
    return all[static_cast<std::size_t>(random.Between(0, static_cast<std::int64_t>(all.size()) - 1))];
}

void Faults::Strike() {
    auto kind = random.Between(0, openServer ? 23 : 20);
    kind < 9 ? StrikeNetwork(kind) : StrikeService(kind);
}

void Faults::StrikeNetwork(std::int64_t kind) {
    auto& net = world.network;
    auto* socket = SomeSocket();
    switch (kind) {
    case 0: return net.DropAll();
    case 1: return socket ? net.DropConnection(*socket) : void();
    case 2: return socket ? net.HalfOpen(*socket) : void();
    case 3: return net.RefuseConnects(static_cast<int>(random.Between(1, 5)));
    case 4: return net.SilentConnects(static_cast<int>(random.Between(1, 5)));
    case 5: return net.StallFor(static_cast<int>(random.Between(1000, 90000)));
    case 6: return socket ? net.StallConnection(*socket, 30000) : void();
    case 7:
        net.FailNth(SimNetwork::Operation::Send, static_cast<int>(random.Between(1, 50)));
        return net.FailNth(SimNetwork::Operation::Connect, static_cast<int>(random.Between(1, 3)));
    default: return machine.disk.FailNth(static_cast<int>(random.Between(1, 12)));
    }
}

void Faults::StrikeService(std::int64_t kind) {
    auto& levers = network.Levers();
    switch (kind) {
    case 9: return levers.Pause(bot);
    case 10: return levers.Resume(bot);
    case 11: return levers.Migrate(bot);
    case 12: return levers.Drop(bot);
    case 13: return levers.DropFromRoom(SomeRoom(), bot);
    case 14: return levers.SignOffFromRoom(SomeRoom(), bot);
    case 15: return levers.SetRate(SomeRoom(), bot, 1, RateCode::Limit);
    case 16: return levers.SetRate(SomeRoom(), bot, LineClass(), RateCode::Limit);
    case 17: return levers.RefuseNextSignOn(24), levers.DropFromRoom(SomeRoom(), bot);
    case 18: return levers.RefuseNextJoin(0x0018), levers.RefuseNextCreation(0x0012);
    case 19: machine.repeatReplies = static_cast<int>(random.Between(1, 5)); return;
    case 20: return levers.CloseRoom(SomeRoom());
    case 21: return levers.SignOff(bot);
    case 22: return levers.Stop(static_cast<int>(random.Between(5, 120)));
    default: return levers.SignOffElsewhere(bot, random.Chance(0.5));
    }
}

} // namespace halyard
