// The contract of sockets in the simulated world. The days and the sweeps of tests/soak let its network fail.

#include "platform/sim/SimPlatform.h"
#include "tests/platform/SocketContract.h"

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

} // namespace halyard
