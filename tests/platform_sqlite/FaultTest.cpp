// Every call that SQLite makes of the machine fails once, and from there on: what was told to be written is
// there afterwards, nothing is there by half, and a fault is never taken for damage.

#include "platform/sqlite/InlineDatabase.h"
#include "tests/platform_sqlite/FaultVfs.h"
#include "tests/platform_sqlite/Scene.h"

namespace halyard {

using Call = FaultVfs::Call;

struct Sweep : testing::TestWithParam<std::tuple<Call, bool, bool>> {};

TEST_P(Sweep, LeavesNothingByHalf) {
    const auto [call, stays, stood] = GetParam();
    FaultVfs vfs;
    int faults = 0;
    int told = 0;
    for (bool happened = true; happened; ++faults) {
        SCOPED_TRACE(faults);
        TestFolder folder;
        auto spec = Lines(folder.Path("ledger.db"));
        spec.vfs = FaultVfs::Name;
        std::vector<std::string> expected;
        if (stood) {
            InlineDatabase database;
            database.Open(spec, nullptr);
            database.Write([](Connection& file) { Say(file, "stood"); }, nullptr);
            expected.push_back("stood");
        }
        spec.migrations = Lines("", 2).migrations;
        vfs.Arm(call, faults + 1, stays);
        {
            InlineDatabase database;
            database.Open(spec, [&](OpenOutcome outcome, const std::string& words) {
                EXPECT_NE(outcome, OpenOutcome::Damaged);
                EXPECT_EQ(IsOpen(outcome), words.empty());
                told += IsOpen(outcome) ? 0 : 1;
            });
            for (const std::string text : {"a", "b", "c"})
                database.Write(
                    [&](Connection& file) {
                        Say(file, text + "1" + std::string(9000, '.'));
                        Say(file, text + "2");
                    },
                    [&](const DatabaseResult& result) {
                        told += result.Ok() ? 0 : 1;
                        if (!result.Ok()) return;
                        expected.push_back(text + "1" + std::string(9000, '.'));
                        expected.push_back(text + "2");
                    });
        }
        happened = vfs.Heal();
        InlineDatabase database;
        database.Open(spec, [&](OpenOutcome outcome, const std::string& words) {
            EXPECT_TRUE(IsOpen(outcome) && outcome != OpenOutcome::Damaged) << words;
        });
        const auto read = [&](Connection& file) { EXPECT_EQ(AllLines(file), expected); };
        for (const auto& name : folder.Names()) EXPECT_FALSE(name.find(".part") < name.size()) << name;
        database.Read(read, [](const DatabaseResult& result) { EXPECT_TRUE(result.Ok()) << result.words; });
    }
    EXPECT_GT(faults, 3);
    // Most locks that are busy once are tried again.
    EXPECT_TRUE(told > 0 || (call == Call::Lock && !stays));
}

INSTANTIATE_TEST_SUITE_P(Faults, Sweep,
                         testing::Combine(testing::Values(Call::Open, Call::Write, Call::Sync, Call::Lock),
                                          testing::Bool(), testing::Bool()));

} // namespace halyard
