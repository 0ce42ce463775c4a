#include "tests/platform/Peers.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

SimFaults Latency(int milliseconds) {
    SimFaults faults;
    faults.latencyMin = faults.latencyMax = milliseconds;
    return faults;
}

TEST(Sockets, BytesThenTheEndArriveInOrderAfterTheLatency) {
    Pair pair(1, Latency(40));
    EXPECT_EQ(pair.near.socket->State(), SocketState::Connected);
    EXPECT_EQ(pair.far.socket->RemoteAddress(), "127.0.0.1");
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
    EXPECT_EQ(pair.near.socket->RemoteAddress(), "");
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
    EXPECT_EQ(pair.near.log, (Log{"7 data 7"}));
    pair.near.socket->SetLowWaterMark(3); // three bytes wait that were not reported
    EXPECT_EQ(pair.near.log.size(), 1u) << "no handler runs within a call";
    pair.world.RunReady();
    EXPECT_EQ(pair.near.log.back(), "16 data 3");
    pair.far.socket->Send("xy");
    pair.far.socket->Close();
    pair.world.RunFor(5);
    EXPECT_EQ(pair.near.log, (Log{"7 data 7", "16 data 3", "17 data 2", "17 Connection closed by the peer"}));
    EXPECT_EQ(pair.near.heard, "1234567890xy");
}

TEST(Sockets, CutStreamsKeepEveryByteAndNeverReportBelowTheMark) {
    std::string sent;
    for (int i = 0; i < 20000; ++i) sent += static_cast<char>('a' + i % 23);
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        auto faults = Latency(3);
        faults.latencyMax = 90;
        faults.cutBytes = true;
        Pair pair(seed, faults);
        std::size_t cuts = 0, least = sent.size();
        pair.near.socket->onData = [&](std::size_t available) {
            least = std::min(least, available);
            pair.near.heard += pair.near.socket->ReadAll();
            cuts += pair.near.heard.size() % 500 != 0;
            pair.near.socket->SetLowWaterMark(6);
        };
        pair.near.socket->SetLowWaterMark(6);
        for (std::size_t at = 0; at < sent.size(); at += 500) {
            pair.far.socket->Send(std::string_view(sent).substr(at, 500));
            pair.world.RunFor(7);
        }
        EXPECT_TRUE(pair.world.RunUntil([&] { return pair.near.heard.size() + 6 > sent.size(); }, 60000));
        EXPECT_GE(least, 6u);
        EXPECT_GT(cuts, 5u);
        pair.far.socket->Close();
        pair.world.RunFor(1000);
        EXPECT_EQ(pair.near.heard, sent) << "seed " << seed;
        EXPECT_EQ(pair.near.log.size(), 1u);
    }
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
    pair.near.socket->Connect("host", 5190); // drops the connection that stands
    auto dropped = std::move(pair.far.socket);
    pair.world.RunFor(100);
    EXPECT_EQ(pair.far.log, (Log{"201 Connection reset by the peer"}));
    EXPECT_EQ(pair.near.socket->State(), SocketState::Connected);
    EXPECT_EQ(errors, 1);
}

TEST(Sockets, PortsOutsideTheRangeAndTakenPortsFail) {
    SimWorld world;
    for (std::int32_t port : {0, -1, 65536}) {
        Peer peer{std::make_unique<SimSocket>(world.network), {}, {}};
        peer.Listen(world);
        peer.socket->Connect("host", port);
        EXPECT_TRUE(peer.log.empty());
        world.RunReady();
        EXPECT_EQ(peer.log.size(), 1u);
    }
    SimServer first(world.network), second(world.network), third(world.network);
    EXPECT_TRUE(first.Listen("127.0.0.1", 0));
    EXPECT_TRUE(second.Listen("127.0.0.1", 0));
    EXPECT_NE(first.Port(), second.Port());
    EXPECT_FALSE(third.Listen("127.0.0.1", first.Port()));
    EXPECT_FALSE(third.Listen("127.0.0.1", 65536));
    EXPECT_EQ(third.Port(), 0);
}

} // namespace
} // namespace halyard
