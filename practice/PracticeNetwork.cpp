#include "practice/PracticeNetwork.h"

#include "practice/Levers.h"
#include "practice/World.h"
#include "practice/people/ScriptPlayer.h"
#include "practice/service/Management.h"

#include <utility>

namespace halyard {

struct PracticeNetwork::Parts {
    Parts(Platform& platform, PracticeOptions options)
        : world(platform, std::move(options)), levers(world), server(platform.NewServer()),
          heartbeat(platform.NewTimer()) {
        if (world.options.management >= 0) management = std::make_unique<Management>(world);
    }

    World world;
    PracticeLevers levers;
    std::unique_ptr<SocketServer> server;
    std::unique_ptr<Management> management;
    std::unique_ptr<Timer> heartbeat;
    std::vector<std::unique_ptr<ScenePlayer>> players;
};

PracticeNetwork::PracticeNetwork(Platform& platform, PracticeOptions options)
    : parts(std::make_unique<Parts>(platform, std::move(options))) {
    parts->world.listener = [this](const PracticeEvent& event) {
        if (onEvent) onEvent(event);
    };
    parts->world.onClientEntered = [this](Room& room) {
        for (std::size_t i = 0; i < parts->players.size(); ++i) parts->players[i]->ClientEntered(room);
    };
}

PracticeNetwork::~PracticeNetwork() = default;

bool PracticeNetwork::Start() {
    parts->server->onConnection = [this](std::unique_ptr<Socket> socket) {
        parts->world.Accept(std::move(socket));
    };
    if (!parts->server->Listen(parts->world.options.address, parts->world.options.port)) return false;
    parts->world.port = parts->server->Port();
    if (parts->management && !parts->management->Start(parts->world.options.management)) return false;
    parts->heartbeat->onTick = [this] {
        parts->world.Heartbeat();
        if (parts->management) parts->management->Heartbeat();
    };
    parts->heartbeat->SetInterval(1000);
    parts->heartbeat->SetEnabled(true);
    return true;
}

std::int32_t PracticeNetwork::Port() const { return parts->server->Port(); }

std::int32_t PracticeNetwork::ManagementPort() const {
    return parts->management ? parts->management->Port() : 0;
}

void PracticeNetwork::Play(const Script& script) {
    for (const auto& scene : script.scenes) {
        parts->players.push_back(std::make_unique<ScenePlayer>(parts->world, parts->levers, scene));
        parts->players.back()->Begin();
    }
}

PracticeLevers& PracticeNetwork::Levers() { return parts->levers; }

bool PracticeNetwork::IsOnLine(const std::string& name) const {
    return parts->world.people.Find(name) != nullptr;
}

bool PracticeNetwork::IsInRoom(const std::string& room, const std::string& name) const {
    auto found = parts->world.rooms.FindName(room);
    return found && found->Find(name);
}

bool PracticeNetwork::IsBanned(const std::string& room, const std::string& name) const {
    auto found = parts->world.rooms.FindName(room);
    return found && found->IsBanned(name);
}

std::string PracticeNetwork::Owner(const std::string& room) const {
    auto found = parts->world.rooms.FindName(room);
    return found ? found->owner : "";
}

std::vector<std::string> PracticeNetwork::People(const std::string& room) const {
    std::vector<std::string> names;
    if (auto found = parts->world.rooms.FindName(room))
        for (const auto& member : found->members) names.push_back(member.name);
    return names;
}

std::vector<std::string> PracticeNetwork::Bans(const std::string& room) const {
    std::vector<std::string> names;
    if (auto found = parts->world.rooms.FindName(room))
        for (const auto& [key, name] : found->bans) names.push_back(name);
    return names;
}

std::size_t PracticeNetwork::Connections() const { return parts->world.ConnectionCount(); }

} // namespace halyard
