#include "platform/sim/SimWorld.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace halyard {
namespace {

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
    std::vector<int> ran, expected;
    std::vector<std::pair<std::int64_t, int>> kept;
    std::vector<SimClock::Ticket> tickets;
    for (int i = 0; i < 500; ++i) {
        auto due = world.chance.Between(0, 50);
        tickets.push_back(world.clock.At(due, [&ran, i] { ran.push_back(i); }));
        if (i % 3 != 0) kept.emplace_back(due, i);
    }
    for (std::size_t i = 0; i < tickets.size(); i += 3) world.clock.Cancel(tickets[i]);
    world.RunFor(25);
    auto old = tickets[1]; // its slot is taken anew now and must not be hit
    world.RunFor(25);
    bool late = false;
    world.clock.In(1, [&late] { late = true; });
    world.clock.Cancel(old);
    world.RunFor(1);
    std::stable_sort(kept.begin(), kept.end(), [](auto& a, auto& b) { return a.first < b.first; });
    for (auto& event : kept) expected.push_back(event.second);
    EXPECT_EQ(ran, expected);
    EXPECT_TRUE(late);
}

TEST(Clock, StopsWhereAConditionHoldsAndTellsWhenItNeverDid) {
    SimWorld world;
    int ticks = 0;
    std::function<void()> tick = [&] { ++ticks, world.clock.In(10, tick); };
    world.clock.In(10, tick);
    EXPECT_TRUE(world.RunUntil([&] { return ticks == 3; }, 1000));
    EXPECT_EQ(world.Now(), 30);
    EXPECT_FALSE(world.RunUntil([&] { return ticks == 100; }, 100));
    EXPECT_EQ(world.Now(), 130);
}

} // namespace
} // namespace halyard
