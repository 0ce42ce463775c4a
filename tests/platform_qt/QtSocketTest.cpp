// The contract of sockets on the real loopback, and what only a real peer can do.

#include "tests/platform/SocketContract.h"
#include "tests/platform_qt/Loop.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halyard {

std::unique_ptr<SocketWorld> MakeSocketWorld() {
    struct World : SocketWorld {
        Platform& Machine() override { return machine; }
        bool Until(const std::function<bool()>& done) override { return RunUntil(done); }
        void Pending() override { RunPending(); }

        QtPlatform machine;
    };
    return std::make_unique<World>();
}

TEST(QtSocket, KeepsWhatCameBeforeAResetEvenWhileSending) {
    QtPlatform platform;
    auto server = platform.NewServer();
    std::unique_ptr<Socket> remote;
    std::string heard;
    bool ended = false;
    server->onConnection = [&](std::unique_ptr<Socket> peer) {
        remote = std::move(peer);
        remote->onData = [&](std::size_t) { heard += remote->ReadAll(); };
        remote->onError = [&](int, const std::string&) { ended = true; };
    };
    EXPECT_FALSE(server->Listen("no address", 0));
    ASSERT_TRUE(server->Listen("127.0.0.1", 0));
    int plain = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(server->Port()));
    inet_pton(AF_INET, "127.0.0.1", &address.sin_addr);
    ASSERT_EQ(connect(plain, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_TRUE(RunUntil([&] { return remote != nullptr; }));
    ASSERT_EQ(send(plain, "last", 4, 0), 4);
    linger hard{1, 0};
    setsockopt(plain, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    close(plain);
    remote->Send("into the void");
    EXPECT_TRUE(RunUntil([&] { return ended; }));
    EXPECT_EQ(heard, "last");
}

} // namespace halyard
