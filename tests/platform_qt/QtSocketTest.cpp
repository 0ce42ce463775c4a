#include "tests/platform_qt/Loop.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halyard {
namespace {

/// A client and the socket that the server got for it, both on the real loopback.
class QtSocket : public testing::Test {
  protected:
    QtSocket() {
        server->onConnection = [this](std::unique_ptr<Socket> peer) {
            remote = std::move(peer);
            remote->onData = [this](std::size_t) { remoteHeard += remote->ReadAll(); };
            remote->onError = [this](int, const std::string&) { remoteEnded = true; };
        };
        client->onData = [this](std::size_t available) {
            reports.push_back(available);
            heard += client->ReadAll();
        };
        client->onError = [this](int, const std::string& description) {
            ++errors;
            lastError = description;
            heardBeforeError = heard;
        };
        EXPECT_TRUE(server->Listen("127.0.0.1", 0));
    }

    void Connect() {
        client->Connect("127.0.0.1", server->Port());
        ASSERT_TRUE(RunUntil([this] { return remote && client->State() == SocketState::Connected; }));
    }

    /// Sends piece after piece, each only once the one before has left and been looked at.
    void SendPiece(std::string_view piece) {
        remote->Send(piece);
        RunPending();
    }

    QtPlatform platform;
    std::unique_ptr<SocketServer> server = platform.NewServer();
    std::unique_ptr<Socket> client = platform.NewSocket();
    std::unique_ptr<Socket> remote;
    std::string heard, heardBeforeError, remoteHeard, lastError;
    std::vector<std::size_t> reports;
    int errors = 0;
    bool remoteEnded = false;
};

TEST_F(QtSocket, HoldsBytesBackBelowTheLowWaterMark) {
    Connect();
    client->SetLowWaterMark(6);
    for (const char* piece : {"a", "b", "c", "d", "e"}) SendPiece(piece);
    EXPECT_TRUE(reports.empty());
    SendPiece("f");
    ASSERT_TRUE(RunUntil([&] { return heard == "abcdef"; }));
    client->SetLowWaterMark(3);
    SendPiece("gh");
    client->SetLowWaterMark(1);
    ASSERT_TRUE(RunUntil([&] { return heard == "abcdefgh"; }));
}

TEST_F(QtSocket, ReportsLeftBytesAgainOnlyAfterNewOnes) {
    Connect();
    client->onData = [this](std::size_t available) { reports.push_back(available); };
    remote->Send("one");
    ASSERT_TRUE(RunUntil([&] { return reports.size() == 1; }));
    client->SetLowWaterMark(1);
    RunPending();
    EXPECT_EQ(reports.size(), 1u);
    remote->Send("two");
    ASSERT_TRUE(RunUntil([&] { return reports.size() == 2; }));
    EXPECT_EQ(reports.back(), 6u);
    EXPECT_EQ(client->ReadAll(), "onetwo");
}

TEST_F(QtSocket, ReportsAllBytesBeforeTheRemoteEnd) {
    Connect();
    client->SetLowWaterMark(100);
    client->Send("never read by the other side");
    remote->onData = nullptr;
    remote->Send("last words");
    remote->Close();
    ASSERT_TRUE(RunUntil([&] { return errors > 0; }));
    EXPECT_EQ(heardBeforeError, "last words");
    EXPECT_EQ(client->State(), SocketState::Closed);
    EXPECT_FALSE(lastError.empty());
    client->Send("to nobody");
    RunPending();
    EXPECT_EQ(errors, 1);
}

TEST_F(QtSocket, SendsWhatIsQueuedBeforeItClosesAndThenIsSilent) {
    Connect();
    EXPECT_EQ(client->RemoteAddress(), "127.0.0.1");
    std::string bytes(2'000'000, 'q');
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    remote->Send("too late");
    client->Send(bytes);
    client->Close();
    EXPECT_EQ(client->State(), SocketState::Closed);
    ASSERT_TRUE(RunUntil([&] { return remoteEnded; }));
    EXPECT_EQ(remoteHeard, bytes);
    EXPECT_EQ(heard, "");
    EXPECT_EQ(errors, 0);
}

TEST_F(QtSocket, FailsThroughTheHandlerAndNeverInsideTheCall) {
    const auto freePort = server->Port();
    server.reset();
    const std::pair<const char*, std::int32_t> cases[] = {
        {"127.0.0.1", freePort}, {"127.0.0.1", 0}, {"127.0.0.1", 65536}, {"", 80}};
    for (const auto& [host, port] : cases) {
        errors = 0;
        client->Connect(host, port);
        EXPECT_EQ(errors, 0) << host << ':' << port;
        EXPECT_TRUE(RunUntil([&] { return errors == 1; })) << host << ':' << port;
        EXPECT_EQ(client->State(), SocketState::Error);
    }
}

TEST_F(QtSocket, MayBeDestroyedInItsHandlers) {
    Connect();
    client->onData = [this](std::size_t) { client.reset(); };
    remote->Send("x");
    ASSERT_TRUE(RunUntil([&] { return remoteEnded; }));
    auto other = platform.NewSocket();
    other->onError = [&](int, const std::string&) { other.reset(); };
    other->Connect("127.0.0.1", 0);
    EXPECT_TRUE(RunUntil([&] { return !other; }));
    server->onConnection = [this](std::unique_ptr<Socket>) { server.reset(); };
    auto last = platform.NewSocket();
    bool lastEnded = false;
    last->onError = [&](int, const std::string&) { lastEnded = true; };
    last->Connect("127.0.0.1", server->Port());
    EXPECT_TRUE(RunUntil([&] { return !server && lastEnded; }));
}

TEST_F(QtSocket, ConnectsAnewFromItsOwnErrorHandler) {
    client->onError = [this](int, const std::string&) {
        if (++errors == 1) client->Connect("127.0.0.1", server->Port());
    };
    client->Connect("127.0.0.1", 0);
    ASSERT_TRUE(RunUntil([&] { return remote && client->State() == SocketState::Connected; }));
    remote->Send("welcome");
    EXPECT_TRUE(RunUntil([&] { return heard == "welcome"; }));
}

TEST_F(QtSocket, KeepsWhatCameBeforeAResetEvenWhileSending) {
    Connect();
    int plain = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(server->Port()));
    inet_pton(AF_INET, "127.0.0.1", &address.sin_addr);
    remote.reset();
    ASSERT_EQ(connect(plain, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_TRUE(RunUntil([&] { return remote != nullptr; }));
    ASSERT_EQ(send(plain, "last", 4, 0), 4);
    linger hard{1, 0};
    setsockopt(plain, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    close(plain);
    remote->Send("into the void");
    EXPECT_TRUE(RunUntil([&] { return remoteEnded; }));
    EXPECT_EQ(remoteHeard, "last");
}

TEST_F(QtSocket, ListensOnlyWhereItCan) {
    auto second = platform.NewServer();
    EXPECT_EQ(second->Port(), 0);
    EXPECT_FALSE(second->Listen("127.0.0.1", server->Port()));
    EXPECT_FALSE(second->Listen("127.0.0.1", 70000));
    EXPECT_FALSE(second->Listen("127.0.0.1", -1));
    EXPECT_FALSE(second->Listen("no address", 0));
}

} // namespace
} // namespace halyard
