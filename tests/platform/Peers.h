#pragma once

// Two ends of a simulated connection that write down what happens to them, with the moment.

#include "platform/sim/SimServer.h"
#include "platform/sim/SimSocket.h"
#include "platform/sim/SimWorld.h"

#include <memory>
#include <string>
#include <vector>

namespace halyard {

/// One end: reads all it is told of, and keeps it.
struct Peer {
    std::unique_ptr<Socket> socket;
    std::string heard;
    std::vector<std::string> log;

    void Listen(SimWorld& world) {
        socket->onData = [this, &world](std::size_t available) {
            auto bytes = socket->ReadAll();
            log.push_back(std::to_string(world.Now()) + " data " + std::to_string(available));
            heard += bytes;
        };
        socket->onError = [this, &world](int, const std::string& description) {
            log.push_back(std::to_string(world.Now()) + " " + description);
        };
    }
};

/// A world with a port 5190 and a client that has connected to it.
struct Pair {
    explicit Pair(std::uint64_t seed = 1, const SimFaults& faults = {}) : world(seed) {
        world.network.faults = faults;
        server.Listen("127.0.0.1", 5190);
        server.onConnection = [this](std::unique_ptr<Socket> came) {
            far.socket = std::move(came);
            far.Listen(world);
        };
        near.socket = std::make_unique<SimSocket>(world.network);
        near.Listen(world);
        near.socket->Connect("host", 5190);
        world.RunUntil([this] { return far.socket != nullptr; }, 60000);
    }

    SimWorld world;
    SimServer server{world.network};
    Peer near, far;
};

using Log = std::vector<std::string>;

} // namespace halyard
