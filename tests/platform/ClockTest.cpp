#include "platform/sim/SimWorld.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

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

TEST(Clock, CancelsInAnyOrderAndIgnoresTicketsThatHaveRun) {
    SimWorld world(7);
    std::vector<std::pair<std::int64_t, int>> ran, kept;
    std::vector<SimClock::Ticket> tickets;
    for (int i = 0; i < 500; ++i) {
        auto due = world.chance.Between(0, 50);
        tickets.push_back(world.clock.At(due, [&, i] { ran.emplace_back(world.Now(), i); }));
        if (i % 3 != 0) kept.emplace_back(due, i);
    }
    for (std::size_t i = 0; i < tickets.size(); i += 3) world.clock.Cancel(tickets[i]);
    world.RunFor(50);
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(ran, kept);
    world.clock.In(1, [&] { ran.clear(); });
    for (auto& old : tickets) world.clock.Cancel(old); // one of their slots is taken anew and must not be hit
    world.RunFor(1);
    EXPECT_TRUE(ran.empty());
}

TEST(Clock, StopsWhereAConditionHoldsAndTellsWhenItNeverDid) {
    SimWorld world;
    bool done = false;
    world.clock.In(30, [&done] { done = true; });
    EXPECT_FALSE(world.RunUntil([&done] { return done; }, 29));
    EXPECT_EQ(world.Now(), 29);
    EXPECT_TRUE(world.RunUntil([&done] { return done; }, 1000));
    EXPECT_EQ(world.Now(), 30);
}

} // namespace halyard
