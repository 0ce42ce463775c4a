// Two ends of a simulated connection that write down what happens to them, with the moment. The sweeps of
// whole evenings in tests/soak let sends and connects fail.

#include "platform/sim/SimServer.h"
#include "platform/sim/SimSocket.h"
#include "platform/sim/SimWorld.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace halyard {
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

SimFaults Latency(int milliseconds) {
    SimFaults faults;
    faults.latencyMin = faults.latencyMax = milliseconds;
    return faults;
}

TEST(Sockets, BytesThenTheEndArriveInOrderAfterTheLatency) {
    Pair pair(1, Latency(40));
    pair.far.socket->Send("hello ");
    pair.far.socket->Send("there");
    pair.world.RunFor(10);
    pair.far.socket->Send("!");
    pair.far.socket->Close();
    pair.near.socket->Send("nobody hears this");
    pair.world.RunFor(1000);
    EXPECT_EQ(pair.near.log, (Log{"80 data 11", "90 data 1", "90 Connection closed by the peer"}));
    EXPECT_EQ(pair.near.heard, "hello there!");
    EXPECT_EQ(pair.near.socket->State(), SocketState::Closed);
    EXPECT_TRUE(pair.far.log.empty());
    EXPECT_EQ(pair.world.network.ConnectionCount(), 0u);
}

TEST(Sockets, ReportsNothingBelowTheLowWaterMarkUntilTheEnd) {
    Pair pair;
    pair.near.socket->SetLowWaterMark(6);
    for (const char* piece : {"1234", "567", "890"}) {
        pair.far.socket->Send(piece);
        pair.world.RunFor(5);
    }
    pair.near.socket->SetLowWaterMark(3); // three bytes wait that were not reported
    EXPECT_EQ(pair.near.log, (Log{"7 data 7"})) << "no handler runs within a call";
    pair.world.RunReady();
    pair.far.socket->Send("xy");
    pair.far.socket->Close();
    pair.world.RunFor(5);
    EXPECT_EQ(pair.near.log, (Log{"7 data 7", "16 data 3", "17 data 2", "17 Connection closed by the peer"}));
}

TEST(Sockets, CutStreamsKeepEveryByte) {
    auto faults = Latency(3);
    faults.cutBytes = true;
    Pair pair(1, faults);
    std::string sent;
    for (int number = 0; number < 2000; ++number) sent += std::to_string(number);
    pair.far.socket->Send(sent);
    pair.world.RunFor(1000);
    EXPECT_EQ(pair.near.heard, sent);
    EXPECT_GT(pair.near.log.size(), 5u) << "in pieces";
}

TEST(Sockets, HandlersMayDestroyCloseOrReconnectTheirSocket) {
    Pair pair;
    int errors = 0;
    pair.near.socket->SetLowWaterMark(100);
    pair.near.socket->onData = [&](std::size_t) { pair.near.socket.reset(); };
    pair.near.socket->onError = [&](int, const std::string&) { ++errors; };
    pair.far.socket->Send("the last bytes");
    pair.far.socket->Close();
    pair.world.RunFor(100); // the rest is reported first, and its handler destroys the socket
    EXPECT_EQ(pair.near.socket, nullptr);
    EXPECT_EQ(errors, 0);

    pair.near.socket = std::make_unique<SimSocket>(pair.world.network);
    pair.near.socket->onError = [&](int, const std::string&) {
        if (++errors == 1) pair.near.socket->Connect("host", 5190);
    };
    pair.near.socket->Connect("host", 1); // nobody listens
    pair.world.RunFor(100);
    EXPECT_EQ(errors, 1);
    EXPECT_EQ(pair.near.socket->State(), SocketState::Connected);
    auto dropped = std::move(pair.far.socket);
    pair.near.socket->Connect("host", 5190); // drops the connection that stands
    pair.world.RunFor(100);
    EXPECT_EQ(pair.far.log, (Log{"201 Connection reset by the peer"}));
    EXPECT_EQ(errors, 1);
}

TEST(Sockets, PortsOutsideTheRangeAndTakenPortsFail) {
    Pair pair;
    for (std::int32_t port : {0, -1, 65536}) {
        pair.near.socket->Connect("host", port);
        EXPECT_EQ(pair.near.socket->State(), SocketState::Connecting) << "no handler runs within a call";
        pair.world.RunReady();
        EXPECT_EQ(pair.near.socket->State(), SocketState::Error);
    }
    SimServer first(pair.world.network), second(pair.world.network);
    EXPECT_TRUE(first.Listen("127.0.0.1", 0));
    for (std::int32_t port : {first.Port(), 65536}) EXPECT_FALSE(second.Listen("127.0.0.1", port));
    EXPECT_TRUE(second.Listen("127.0.0.1", 0));
    EXPECT_NE(first.Port(), second.Port());
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
}

} // namespace
} // namespace halyard
