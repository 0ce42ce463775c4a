#include "platform/sim/SimWorld.h"

#include <gtest/gtest.h>
#include <string>

namespace halyard {

TEST(Clock, RunsEventsByMomentThenInTheOrderTheyWereSet) {
    SimWorld world;
    std::string seen;
    auto write = [&](char c) { return [&seen, c] { seen += c; }; };
    world.clock.In(20, write('d'));
    world.clock.In(10, write('a'));
    world.clock.In(10, [&] {
        seen += 'b';
        world.clock.In(0, write('c')); // due now, but set after everything else that is
        world.clock.At(3, write('C')); // long past
    });
    world.clock.In(10, write('B'));
    world.RunFor(19);
    EXPECT_EQ(seen, "abBcC");
    EXPECT_EQ(world.Now(), 19);
    world.RunFor(1);
    EXPECT_EQ(seen, "abBcCd");
}

} // namespace halyard
