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
        const auto spec = Lines(folder.Path("ledger.db"), 2, FaultVfs::Name);
        std::vector<std::string> expected;
        if (stood) {
            InlineDatabase database;
            database.Open(Lines(spec.path, 1, FaultVfs::Name), nullptr);
            database.Write(Says({"stood"}), nullptr);
            expected.push_back("stood");
        }
        vfs.Arm(call, faults + 1, stays);
        {
            InlineDatabase database;
            database.Open(spec, [&](OpenOutcome outcome, const std::string&) {
                EXPECT_NE(outcome, OpenOutcome::Damaged);
                told += IsOpen(outcome) ? 0 : 1;
            });
            for (const std::string text : {"a", "b", "c"}) {
                const std::vector<std::string> two{text + std::string(9000, '.'), text};
                database.Write(Says(two), [&](const DatabaseResult& result) {
                    told += result.Ok() ? 0 : 1;
                    if (result.Ok()) expected.insert(expected.end(), two.begin(), two.end());
                });
            }
        }
        happened = vfs.Heal();
        const auto after = OpenConnection(spec, OpenMode::ReadWrite);
        ASSERT_TRUE(after.connection && after.outcome != OpenOutcome::Damaged) << after.result.words;
        EXPECT_EQ(AllLines(*after.connection), expected);
        for (const auto& name : folder.Names()) EXPECT_FALSE(name.ends_with(".part")) << name;
    }
    EXPECT_GT(faults, 3);
    // Most locks that are busy once are tried again.
    EXPECT_TRUE(told > 0 || (call == Call::Lock && !stays));
}

TEST(Faults, KeepsNothingWithoutALog) {
    FaultVfs vfs;
    vfs.sharesMemory = false;
    TestFolder folder;
    const auto opened =
        OpenConnection(Lines(folder.Path("ledger.db"), 1, FaultVfs::Name), OpenMode::ReadWrite);
    EXPECT_EQ(opened.outcome, OpenOutcome::Failed);
    EXPECT_NE(opened.result.words.find("log"), std::string::npos) << opened.result.words;
}

INSTANTIATE_TEST_SUITE_P(Faults, Sweep,
                         testing::Combine(testing::Values(Call::Open, Call::Write, Call::Sync, Call::Lock),
                                          testing::Bool(), testing::Bool()));

} // namespace halyard
