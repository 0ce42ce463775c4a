// Two ends of a simulated connection that write down what happens to them, with the moment. The sweeps of
// whole evenings in tests/soak let sends and connects fail.

#include "platform/sim/SimPlatform.h"
#include "platform/sim/SimServer.h"
#include "platform/sim/SimSocket.h"
#include "tests/platform/SocketContract.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

std::unique_ptr<SocketWorld> MakeSocketWorld() {
    struct World : SocketWorld {
        Platform& Machine() override { return machine; }
        bool Until(const std::function<bool()>& done) override { return world.RunUntil(done, 30000); }
        void Pending() override { world.RunFor(5); }

        SimWorld world;
        SimPlatform machine{world};
    };
    return std::make_unique<World>();
}

namespace {

/// One end: reads all it is told of, and keeps it.
struct Peer {
    std::unique_ptr<Socket> socket;
    std::string heard;
    std::vector<std::string> log;

    void Listen(SimWorld& world) {
        socket->onData = [this, &world](std::size_t available) {
            log.push_back(std::to_string(world.Now()) + " data " + std::to_string(available));
            heard += socket->ReadAll();
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

TEST(Sockets, CutStreamsKeepEveryByte) {
    SimFaults faults;
    faults.latencyMin = faults.latencyMax = 3;
    faults.cutBytes = true;
    Pair pair(1, faults);
    std::string sent;
    for (int number = 0; number < 2000; ++number) sent += std::to_string(number);
    pair.far.socket->Send(sent);
    pair.world.RunFor(1000);
    EXPECT_EQ(pair.near.heard, sent);
    EXPECT_GT(pair.near.log.size(), 5u) << "in pieces";
    EXPECT_TRUE(pair.near.log[0].starts_with("6 ")) << pair.near.log[0];
}

TEST(Sockets, AHalfOpenConnectionIsNoticedAMinuteAfterASend) {
    Pair pair;
    pair.world.network.HalfOpen(*pair.near.socket);
    pair.world.RunFor(3600000);
    EXPECT_TRUE(pair.near.log.empty()) << "nothing was sent, nothing can be missed";
    pair.near.socket->Send("a");
    pair.world.RunFor(30000);
    pair.near.socket->Send("b"); // does not put it off
    pair.far.socket->Close();
    pair.world.RunFor(100000);
    EXPECT_EQ(pair.near.log, (Log{"3660001 Connection timed out"}));
    EXPECT_TRUE(pair.far.heard.empty());
    for (std::int32_t port : {0, 65536}) { // fails at once, however far the other end is
        pair.near.socket->Connect("host", port);
        pair.world.RunReady();
        EXPECT_EQ(pair.near.socket->State(), SocketState::Error);
    }
}

TEST(Sockets, AStallDelaysWhatAMinuteDoesNotEnd) {
    Pair pair;
    pair.world.network.StallConnection(*pair.near.socket, 5000);
    pair.near.socket->Send("late");
    pair.world.RunFor(5000);
    EXPECT_EQ(pair.far.log, (Log{"5001 data 4"}));
    pair.world.network.StallFor(70000);
    pair.far.socket->Send("too late");
    pair.world.RunFor(100000);
    EXPECT_EQ(pair.far.log.back(), "65001 Connection timed out");
    EXPECT_EQ(pair.near.log, (Log{"65001 Connection reset by the peer"}));
    EXPECT_TRUE(pair.near.heard.empty());
}

TEST(Sockets, ADropTakesWhatIsUnderWayAndTellsBothSides) {
    Pair pair;
    pair.near.socket->SetLowWaterMark(100);
    pair.far.socket->Send("arrived");
    pair.world.RunFor(1);
    pair.far.socket->Send("lost");
    pair.world.network.DropAll();
    EXPECT_TRUE(pair.far.log.empty()) << "no handler runs within a call";
    pair.world.RunFor(100);
    EXPECT_EQ(pair.near.log, (Log{"2 data 7", "2 Connection reset by the peer"}));
    EXPECT_EQ(pair.far.log, (Log{"2 Connection reset by the peer"}));
    EXPECT_EQ(pair.world.network.ConnectionCount(), 0U);
}

} // namespace
} // namespace halyard
