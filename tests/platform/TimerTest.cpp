#include "platform/sim/SimTimer.h"
#include "platform/sim/SimWorld.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace halyard {

struct Timers : testing::Test {
    SimWorld world;
    SimTicks count;
    std::vector<std::int64_t> ticks;
    std::unique_ptr<SimTimer> timer = std::make_unique<SimTimer>(world.clock, count);

    Timers() {
        timer->SetInterval(100);
        timer->onTick = [this] { ticks.push_back(world.Now()); };
    }
    using Moments = std::vector<std::int64_t>;
};

TEST_F(Timers, RestartOnlyWhenTheyWereOffAndTakeANewIntervalFromNow) {
    timer->SetEnabled(true);
    world.RunFor(60);
    timer->SetEnabled(true); // already on: no restart
    world.RunFor(60);
    timer->SetEnabled(false);
    timer->SetEnabled(true); // the restart idiom
    world.RunFor(190);
    timer->SetInterval(50);
    world.RunFor(50);
    timer->SetEnabled(false);
    timer->SetInterval(30);
    world.RunFor(100);
    timer->SetEnabled(true);
    world.RunFor(30);
    EXPECT_EQ(ticks, (Moments{100, 220, 360, 490}));
}

TEST_F(Timers, ALostTickComesAnIntervalLater) {
    count.lost = 2;
    timer->SetEnabled(true);
    world.RunFor(400);
    EXPECT_EQ(ticks, (Moments{100, 300, 400}));
}

TEST_F(Timers, HandlersMayStopRestartChangeAndDestroyTheirTimer) {
    timer->onTick = [this] {
        ticks.push_back(world.Now());
        if (ticks.size() == 1) timer->SetEnabled(false), timer->SetEnabled(true);
        if (ticks.size() == 2) timer->SetInterval(10);
        if (ticks.size() == 3) timer->SetEnabled(false);
        if (ticks.size() == 4) timer.reset(), ticks.push_back(-1);
    };
    timer->SetEnabled(true);
    world.RunFor(710);
    timer->SetEnabled(true);
    world.RunFor(10000);
    EXPECT_EQ(ticks, (Moments{100, 200, 210, 720, -1}));
}

} // namespace halyard
