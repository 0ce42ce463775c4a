#include "tests/platform/SocketContract.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halyard {

/// A client and the socket that the server got for it.
class SocketContract : public testing::Test {
  protected:
    SocketContract() {
        server->onConnection = [this](std::unique_ptr<Socket> peer) {
            remote = std::move(peer);
            remote->onData = [this](std::size_t) { remoteHeard += remote->ReadAll(); };
            remote->onError = [this](int, const std::string&) { remoteEnded = true; };
        };
        client->onData = [this](std::size_t available) {
            reports.push_back(available);
            if (reading) heard += client->ReadAll();
        };
        client->onError = [this](int, const std::string&) {
            ++errors;
            heardBeforeError = heard;
        };
        EXPECT_TRUE(server->Listen("127.0.0.1", 0));
    }
    bool Until(const std::function<bool()>& done) { return world->Until(done); }
    void Connect() {
        client->Connect("127.0.0.1", server->Port());
        ASSERT_TRUE(Until([this] { return remote && client->State() == SocketState::Connected; }));
    }
    /// Sends piece after piece, each only once the one before has left and been looked at.
    void SendPiece(std::string_view piece) {
        remote->Send(piece);
        world->Pending();
    }

    std::unique_ptr<SocketWorld> world = MakeSocketWorld();
    std::unique_ptr<SocketServer> server = world->Machine().NewServer();
    std::unique_ptr<Socket> client = world->Machine().NewSocket(), remote;
    std::string heard, heardBeforeError, remoteHeard;
    std::vector<std::size_t> reports;
    int errors = 0;
    bool reading = true, remoteEnded = false;
};

TEST_F(SocketContract, ReportsNothingBelowTheLowWaterMarkAndLeftBytesOnlyWithNewOnes) {
    Connect();
    client->SetLowWaterMark(6);
    for (const char* piece : {"a", "b", "c", "d", "e"}) SendPiece(piece);
    EXPECT_TRUE(reports.empty());
    SendPiece("f");
    ASSERT_TRUE(Until([&] { return heard == "abcdef"; }));
    client->SetLowWaterMark(3);
    SendPiece("gh");
    client->SetLowWaterMark(2); // two bytes wait that were not reported
    EXPECT_EQ(reports.size(), 1U) << "no handler runs within a call";
    ASSERT_TRUE(Until([&] { return heard == "abcdefgh"; }));
    reading = false;
    SendPiece("one");
    ASSERT_TRUE(Until([&] { return reports.size() == 3; }));
    client->SetLowWaterMark(1);
    world->Pending();
    EXPECT_EQ(reports.size(), 3U);
    SendPiece("two");
    ASSERT_TRUE(Until([&] { return reports.size() == 4; }));
    EXPECT_EQ(reports.back(), 6U);
    EXPECT_EQ(client->ReadAll(), "onetwo");
}

TEST_F(SocketContract, ReportsAllBytesBeforeTheRemoteEnd) {
    Connect();
    client->SetLowWaterMark(100);
    client->Send("never read by the other side");
    remote->onData = nullptr;
    remote->Send("last words");
    remote->Close();
    ASSERT_TRUE(Until([&] { return errors > 0; }));
    EXPECT_EQ(heardBeforeError, "last words");
    EXPECT_EQ(client->State(), SocketState::Closed);
    client->Send("to nobody");
    world->Pending();
    EXPECT_EQ(errors, 1);
}

TEST_F(SocketContract, SendsWhatIsQueuedBeforeItClosesAndThenIsSilent) {
    Connect();
    EXPECT_EQ(client->RemoteAddress(), "127.0.0.1");
    std::string bytes(2'000'000, 'q');
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    remote->Send("too late");
    client->Send(bytes);
    client->Close();
    EXPECT_EQ(client->State(), SocketState::Closed);
    ASSERT_TRUE(Until([&] { return remoteEnded; }));
    EXPECT_EQ(remoteHeard, bytes);
    EXPECT_EQ(heard, "");
    EXPECT_EQ(errors, 0);
}

TEST_F(SocketContract, FailsThroughTheHandlerAndNeverInsideTheCall) {
    auto second = world->Machine().NewServer();
    EXPECT_EQ(second->Port(), 0);
    const auto port = server->Port();
    for (std::int32_t taken : {port, 70000, -1}) EXPECT_FALSE(second->Listen("127.0.0.1", taken)) << taken;
    EXPECT_TRUE(second->Listen("127.0.0.1", 0));
    EXPECT_NE(second->Port(), port);
    server.reset();
    const std::pair<const char*, std::int32_t> cases[] = {
        {"127.0.0.1", port}, {"127.0.0.1", 0}, {"127.0.0.1", -1}, {"127.0.0.1", 65536}, {"", 80}};
    for (const auto& [host, closed] : cases) {
        errors = 0;
        client->Connect(host, closed);
        EXPECT_EQ(errors, 0) << host << ':' << closed;
        EXPECT_TRUE(Until([&] { return errors == 1; })) << host << ':' << closed;
        EXPECT_EQ(client->State(), SocketState::Error);
    }
}

TEST_F(SocketContract, MayBeDestroyedInItsHandlers) {
    Connect();
    client->SetLowWaterMark(100);
    client->onData = [this](std::size_t) { client.reset(); };
    remote->Send("the last bytes, which are reported first");
    remote->Close();
    ASSERT_TRUE(Until([&] { return !client; }));
    world->Pending();
    EXPECT_EQ(errors, 0);
    auto other = world->Machine().NewSocket();
    other->onError = [&](int, const std::string&) { other.reset(); };
    other->Connect("127.0.0.1", 0);
    EXPECT_TRUE(Until([&] { return !other; }));
    server->onConnection = [this](std::unique_ptr<Socket>) { server.reset(); };
    auto last = world->Machine().NewSocket();
    bool lastEnded = false;
    last->onError = [&](int, const std::string&) { lastEnded = true; };
    last->Connect("127.0.0.1", server->Port());
    EXPECT_TRUE(Until([&] { return !server && lastEnded; }));
}

TEST_F(SocketContract, ConnectsAnewFromItsOwnErrorHandlerAndOverAConnection) {
    client->onError = [this](int, const std::string&) {
        if (++errors == 1) client->Connect("127.0.0.1", server->Port());
    };
    client->Connect("127.0.0.1", 0);
    ASSERT_TRUE(Until([&] { return remote && client->State() == SocketState::Connected; }));
    remote->Send("welcome");
    EXPECT_TRUE(Until([&] { return heard == "welcome"; }));
    auto dropped = std::move(remote);
    client->Connect("127.0.0.1", server->Port());
    EXPECT_TRUE(Until([&] { return remote && remoteEnded; }));
    EXPECT_EQ(errors, 1);
}

} // namespace halyard
