#include "tests/platform/Peers.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

struct NetworkFaults : testing::Test {
    Pair pair;
    SimWorld& world = pair.world;
    Peer& near = pair.near;
    Peer& far = pair.far;
};

TEST_F(NetworkFaults, RefusedAndUnansweredConnectsFailInTime) {
    world.network.RefuseConnects(1);
    near.socket->Connect("host", 5190);
    world.RunFor(100);
    EXPECT_EQ(near.log, (Log{"2 Connection refused"}));
    world.network.SilentConnects(1);
    near.socket->Connect("host", 5190);
    world.RunFor(59999);
    EXPECT_EQ(near.socket->State(), SocketState::Connecting);
    world.RunFor(1);
    EXPECT_EQ(near.log.back(), "60101 Connection timed out");
    near.socket->Connect("host", 5190);
    world.RunFor(1);
    EXPECT_EQ(near.socket->State(), SocketState::Connected) << "the faults are used up";
}

TEST_F(NetworkFaults, ACloseTakesBackAConnectThatIsUnderWay) {
    world.network.SilentConnects(1);
    near.socket->Connect("host", 5190);
    world.RunFor(10);
    near.socket->Close();
    world.RunFor(100000);
    EXPECT_TRUE(near.log.empty());
}

TEST_F(NetworkFaults, AHalfOpenConnectionIsNoticedAMinuteAfterASend) {
    world.network.HalfOpen(*near.socket);
    world.RunFor(3600000);
    EXPECT_TRUE(near.log.empty()) << "nothing was sent, nothing can be missed";
    near.socket->Send("a");
    world.RunFor(30000);
    near.socket->Send("b"); // does not put it off
    far.socket->Close();
    world.RunFor(100000);
    EXPECT_EQ(near.log, (Log{"3660001 Connection timed out"}));
    EXPECT_TRUE(far.heard.empty());
}

TEST_F(NetworkFaults, AStallDelaysWhatAMinuteDoesNotEnd) {
    world.network.StallConnection(*near.socket, 5000);
    near.socket->Send("late");
    world.RunFor(5000);
    EXPECT_EQ(far.log, (Log{"5001 data 4"}));
    world.network.StallFor(70000);
    far.socket->Send("too late");
    world.RunFor(100000);
    EXPECT_EQ(far.log.back(), "65001 Connection timed out");
    EXPECT_EQ(near.log, (Log{"65001 Connection reset by the peer"}));
    EXPECT_TRUE(near.heard.empty());
}

TEST_F(NetworkFaults, ADropTakesWhatIsUnderWayAndTellsBothSides) {
    near.socket->SetLowWaterMark(100);
    far.socket->Send("arrived");
    world.RunFor(1);
    far.socket->Send("lost");
    world.network.DropAll();
    EXPECT_TRUE(far.log.empty()) << "no handler runs within a call";
    world.RunFor(100);
    EXPECT_EQ(near.log, (Log{"2 data 7", "2 Connection reset by the peer"}));
    EXPECT_EQ(far.log, (Log{"2 Connection reset by the peer"}));
    EXPECT_EQ(near.socket->State(), SocketState::Error);
}

TEST(NetworkSweep, WhicheverSendOrConnectFailsBothSidesLearnOfIt) {
    for (int nth = 1; nth <= 4; ++nth) {
        Pair pair;
        pair.world.network.FailNth(SimNetwork::Operation::Send, nth);
        for (const char* word : {"one", "two", "three"}) {
            pair.near.socket->Send(word);
            pair.world.RunFor(5);
        }
        auto failed = nth <= 3;
        EXPECT_EQ(pair.near.socket->State(), failed ? SocketState::Error : SocketState::Connected);
        EXPECT_EQ(pair.far.heard, std::string("onetwothree").substr(0, nth == 4 ? 11 : 3 * (nth - 1)));
        EXPECT_EQ(pair.far.log.size(), failed ? static_cast<std::size_t>(nth) : 3u);
    }
    Pair pair;
    pair.world.network.FailNth(SimNetwork::Operation::Connect, 1);
    pair.near.socket->Connect("host", 5190);
    pair.world.RunFor(5);
    EXPECT_EQ(pair.near.log, (Log{"2 Connection refused"}));
}

/// Talks for ten minutes over the worst network there is, reconnecting; gives all that was noticed.
std::pair<Log, std::uint64_t> Ordeal(std::uint64_t seed) {
    SimFaults faults;
    faults.latencyMin = 5, faults.latencyMax = 400;
    faults.cutBytes = true;
    faults.refuse = faults.silent = 0.1;
    faults.drop = faults.halfOpen = faults.stall = 0.01;
    Pair pair(seed, faults);
    for (int second = 0; second < 600; ++second) {
        if (pair.near.socket->State() == SocketState::Error) pair.near.socket->Connect("host", 5190);
        pair.near.socket->Send("ping " + std::to_string(second));
        if (pair.far.socket) pair.far.socket->Send("pong " + std::to_string(second));
        pair.world.RunFor(1000);
    }
    auto log = pair.near.log;
    log.insert(log.end(), pair.far.log.begin(), pair.far.log.end());
    log.push_back(pair.near.heard + pair.far.heard);
    return {log, pair.world.chance.Next()};
}

TEST(Replay, TheSameSeedEndsOnTheSameTraceAndRandomValue) {
    for (std::uint64_t seed : {1, 2, 3}) EXPECT_EQ(Ordeal(seed), Ordeal(seed));
    EXPECT_NE(Ordeal(1), Ordeal(2));
    EXPECT_GT(Ordeal(1).first.size(), 500u);
}

} // namespace
} // namespace halyard
