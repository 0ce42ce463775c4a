#include "tests/platform_qt/Loop.h"

#include <gtest/gtest.h>
#include <set>

namespace halyard {

TEST(QtTimer, NeverTicksEarlyAndRepeats) {
    QtPlatform platform;
    auto timer = platform.NewTimer();
    std::vector<std::int64_t> ticks{platform.Milliseconds()};
    timer->onTick = [&] { ticks.push_back(platform.Milliseconds()); };
    timer->SetInterval(20);
    timer->SetEnabled(true);
    ASSERT_TRUE(RunUntil([&] { return ticks.size() == 5; }));
    // Times are cut to whole milliseconds, so a full interval can look one shorter.
    for (std::size_t i = 1; i < ticks.size(); ++i) EXPECT_GE(ticks[i] - ticks[i - 1], 19);
}

TEST(QtTimer, ObeysItsOwnHandler) {
    QtPlatform platform;
    auto stopped = platform.NewTimer();
    auto destroyed = platform.NewTimer();
    int ticks = 0;
    stopped->onTick = [&] { ++ticks, stopped->SetEnabled(false); };
    destroyed->onTick = [&] { destroyed.reset(); };
    stopped->SetInterval(0);
    EXPECT_EQ(stopped->Interval(), 1);
    stopped->SetEnabled(true);
    destroyed->SetEnabled(true);
    ASSERT_TRUE(RunUntil([&] { return ticks == 1 && !destroyed; }));
    EXPECT_FALSE(stopped->Enabled());
    stopped->SetEnabled(true);
    EXPECT_TRUE(RunUntil([&] { return ticks == 2; }));
}

TEST(QtRandom, StaysBelowOneAndIsNoConstant) {
    QtPlatform platform;
    std::set<double> met;
    platform.RandomSource().Reseed();
    for (int i = 0; i < 1000; ++i) met.insert(platform.RandomSource().Fraction());
    EXPECT_TRUE(*met.begin() >= 0 && *met.rbegin() < 1);
    EXPECT_GT(met.size(), 900U);
}

} // namespace halyard
