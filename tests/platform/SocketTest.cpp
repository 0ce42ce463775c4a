// The contract of sockets in the simulated world. The days and the sweeps of tests/soak let its network fail.

#include "platform/sim/SimPlatform.h"
#include "tests/platform/SocketContract.h"

#include <gtest/gtest.h>
#include <memory>

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

// A peer that is gone without a word is known within 75 s: 60 s behind what was sent, and by the probes of a
// connection on which nothing is.
TEST(SimulatedSocket, KnowsADeadPeerWithin75Seconds) {
    for (const int sendsAfter : {0, 10000, 15000}) {
        SimWorld world;
        SimPlatform machine{world};
        SimPlatform service{world};
        std::unique_ptr<Socket> accepted;
        const auto server = service.NewServer();
        server->onConnection = [&](std::unique_ptr<Socket> socket) { accepted = std::move(socket); };
        ASSERT_TRUE(server->Listen("127.0.0.1", 5190));
        const auto socket = machine.NewSocket();
        std::int64_t known = 0;
        std::int64_t knownThere = 0;
        socket->onError = [&](int, const std::string&) { known = world.Now(); };
        socket->Connect("127.0.0.1", 5190);
        world.RunFor(100);
        ASSERT_TRUE(accepted);
        accepted->onError = [&](int, const std::string&) { knownThere = world.Now(); };
        const auto gone = world.Now();
        world.network.HalfOpen(*socket);
        world.RunFor(sendsAfter);
        if (sendsAfter > 0) socket->Send("ping");
        world.RunFor(200000);
        EXPECT_EQ(known - gone, sendsAfter > 0 ? sendsAfter + 60000 : 75000);
        EXPECT_EQ(knownThere - gone, 75000);
    }
}

} // namespace halyard
