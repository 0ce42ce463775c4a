// Short runs of the soak: they hold at every level of faults, and a seed repeats itself. The watches are
// shown what they must not let pass.

#include "base/Text.h"
#include "rooms/TimeBan.h"
#include "soak/Plan.h"
#include "soak/SoakRun.h"
#include "soak/watch/BanWatch.h"
#include "soak/watch/LiftWatch.h"
#include "soak/watch/PacingWatch.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

SoakPlan Plan(const std::string& words) {
    return ReadPlan(Split("--days 0.1 --rooms 3 --lines 300 " + words, " ")).value();
}

void Holds(const SoakPlan& plan) {
    SoakRun run(plan);
    EXPECT_TRUE(run.Run()) << run.Violation() << "\n" << ReplayLine(plan);
    EXPECT_EQ(run.FaultCount() > 0, plan.faults > 0);
}

TEST(Soak, HoldsAtEveryLevelOfFaults) {
    for (int level = 0; level <= 9; ++level)
        Holds(Plan("--people 36 --seed 10" + std::to_string(level) + " --faults " + std::to_string(level)));
    for (const char* level : {"0", "6", "9"})
        for (const char* management : {"", " --management"})
            Holds(Plan(std::string("--people 36 --network open-server --seed 20") + level + " --faults " +
                       level + management));
}

TEST(Soak, TheLedgerSaysWhatHappenedAndChangesNothing) {
    for (const char* words : {"--people 36 --seed 300 --faults 0", "--people 36 --seed 307 --faults 7"}) {
        SoakRun without(Plan(words)), with(Plan(std::string(words) + " --ledger"));
        EXPECT_TRUE(with.Run()) << with.Violation() << "\n" << words;
        without.Run();
        EXPECT_EQ(with.Digest(), without.Digest());
    }
}

TEST(Soak, WithEveryGuardOnNobodyHelps) {
    for (const char* words : {"--people 36 --seed 405 --faults 5", "--people 36 --seed 408 --faults 8"}) {
        SoakRun run(Plan(std::string(words) + " --guards"));
        EXPECT_TRUE(run.Run()) << run.Violation() << "\n" << words;
        EXPECT_EQ(run.StepsIn(), 0);
    }
}

// A room that opens while another is asked for bears that one's name for a moment. Its bans once went to the
// other's list.
TEST(Soak, BansOfARoomThatOpenedUnderAnotherNameAreOnItsOwnList) {
    SoakRun run(Plan("--people 40 --seed 1035 --faults 5"));
    EXPECT_TRUE(run.Run()) << run.Violation();
}

TEST(Soak, PacingIsKeptByClassAndStay) {
    PacingWatch watch;
    EXPECT_TRUE(watch.Heard(1, "1~Banned: a", 1000));
    EXPECT_TRUE(watch.Heard(1, "2~Autoban Level: all", 1000));
    EXPECT_TRUE(watch.Heard(1, "joined", 1001));
    EXPECT_TRUE(watch.Heard(2, "1~Banned: a", 1001));
    EXPECT_TRUE(watch.Heard(1, "1~Banned: b", 9200));
    EXPECT_FALSE(watch.Heard(1, "1~Banned: c", 17399));
    EXPECT_FALSE(watch.Heard(1, "2~Ban Pause: 1", 9499));
    EXPECT_TRUE(watch.Heard(1, "3~Status", 20000));
    EXPECT_FALSE(watch.Heard(1, "Commands: op", 30999));
    watch.Ended(1);
    EXPECT_TRUE(watch.Heard(1, "1~Banned: d", 17400));
}

TEST(Soak, AReplyIsTakenOnceAndOnItsOwnStreamOnly) {
    BanWatch watch;
    watch.Sent(7, {"room1", "rowdy", 1, 0});
    EXPECT_TRUE(watch.Waiting("room1"));
    EXPECT_FALSE(watch.Replied(7, 2));
    EXPECT_TRUE(watch.Replied(7, 1));
    EXPECT_FALSE(watch.Replied(7, 1));
    EXPECT_FALSE(watch.Waiting("room1"));

    watch.Sent(8, {"room1", "rowdy", 1, 0});
    watch.Ended(1);
    EXPECT_FALSE(watch.Waiting("room1"));
    EXPECT_TRUE(watch.Excused("room1", "rowdy"));
    watch.Sent(9, {"room1", "rowdy", 2, 0});
    EXPECT_TRUE(watch.Replied(9, 2));
    EXPECT_FALSE(watch.Excused("room1", "rowdy"));
}

TEST(Soak, ATimeBanEndsInItsTimeAndIsLifted) {
    const auto record = NewTimeBan("Rowdy", "Room 1", 4, 0, 2, "1");
    Collection<std::string> records;
    LiftWatch watch;
    bool here = true;
    auto at = [&](std::int64_t seconds) {
        return watch.Check(records, seconds * 1000, [&](const auto& ban) { return here && ban.slot == 2; });
    };
    auto begin = [&](std::int64_t seconds) { return records.Add(record), at(seconds); };
    auto end = [&](std::int64_t seconds) { return records.Remove(1), at(seconds); };
    EXPECT_EQ(begin(0), "");
    EXPECT_EQ(begin(5), "");
    watch.Asked("room1", "rowdy");
    EXPECT_EQ(end(62), "");
    EXPECT_EQ(at(67), "");
    EXPECT_EQ(at(68), "a time ban has outlived its time: Rowdy:Room 1:4:0:2:1:");
    EXPECT_EQ(end(68), "a time ban has ended, and nobody was let in: Rowdy:Room 1:4:0:2:1:");
    EXPECT_EQ(watch.StrandedCount(), 0U);
    here = false;
    EXPECT_EQ(begin(100), "");
    EXPECT_EQ(end(160), "a time ban has ended early: Rowdy:Room 1:4:0:2:1:");
    EXPECT_EQ(watch.StrandedCount(), 1U);
    EXPECT_EQ(watch.EndedCount(), 3U);
}

TEST(Soak, TheCommandLineIsReadAndWrittenBack) {
    const std::string words = "--seed 18446744073709551615 --days 0.5 --rooms 10 --people 200 --faults 9 "
                              "--lines 1200 --network open-server --management";
    const auto plan = ReadPlan(Split(words, " "));
    ASSERT_TRUE(plan);
    EXPECT_EQ(ReplayLine(*plan), "halyard-soak " + words);
    for (const char* wrong : {"", "--seed 1", "--seed 1 --days", "--seed 1 --days 0", "--seed x --days 1",
                              "--seed 1 --days 1 --faults 10", "--seed 1 --days 1 --what 1", "--days 1",
                              "--seed 1 --days 1 --network x", "--seed 1 --days 1 --management",
                              "--ledger --seed 1 --days 1 --network open-server --management"})
        EXPECT_FALSE(ReadPlan(Split(wrong, " "))) << wrong;
}

} // namespace

} // namespace halyard
