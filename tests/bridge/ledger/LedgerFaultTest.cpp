// Every call that the file makes of the machine fails once, and for a time, while the ledger is kept: facts
// go on, the operator is told once, and what is in the file afterwards is whole.

#include "tests/bridge/ledger/LedgerScene.h"
#include "tests/platform_sqlite/FaultVfs.h"

namespace halyard {

using Call = FaultVfs::Call;

struct LedgerFaults : testing::TestWithParam<std::tuple<Call, bool, bool>> {};

TEST_P(LedgerFaults, StopNobodyAndLeaveNothingByHalf) {
    const auto [call, stays, atOpening] = GetParam();
    constexpr int Bans = 6;
    FaultVfs vfs;
    bool happened = true;
    int kept = 0;
    for (int nth = 1; happened && nth < 1000; nth += call == Call::Write ? 7 : 1) { // there are many writes
        SCOPED_TRACE(nth);
        const TestFolder folder;
        const auto path = folder.Path("ledger.db");
        { const LedgerScene first(path); } // so that there is a file
        if (atOpening) vfs.Arm(call, nth, stays);
        LedgerScene scene(path, FaultVfs::Name);
        if (!atOpening) vfs.Arm(call, nth, stays);
        for (int ban = 1; ban <= Bans; ++ban) {
            const auto name = "guest" + std::to_string(ban);
            scene.OpBans(ban, name);
            scene.Yes(ban, name);
            scene.Wait(call == Call::Sync ? 7000 : 3000); // batches are given up only after several tries
        }
        happened = vfs.Heal();
        scene.Wait(6000);
        scene.OpBans(Bans + 1, "last");
        scene.Wait();
        const bool open = scene.ledger->Records() != nullptr;
        const auto told = scene.Told();
        EXPECT_LE(told.size(), 2U) << told.back();
        EXPECT_TRUE(told.size() < 2 || told[1] == "The ledger is written again.") << told[1];
        scene.End();
        if (!open) continue; // nothing is kept, and that was told
        ++kept;
        const auto after = OpenConnection(LedgerSpec(path, 1'800'000'000), OpenMode::ReadWrite);
        ASSERT_EQ(after.outcome, OpenOutcome::Opened) << after.result.words;
        EXPECT_EQ(Verify(*after.connection), Lines{});
        auto& row = after.connection->Prepare("SELECT count(*), (SELECT count(*) FROM gaps) FROM acts");
        ASSERT_TRUE(row.Step());
        EXPECT_TRUE(row.Integer(0) == Bans + 1 || row.Integer(1) > 0) << row.Integer(0);
        row.Reset();
    }
    EXPECT_FALSE(happened) << "there are no more calls to fail";
    EXPECT_GT(kept, 0);
}

INSTANTIATE_TEST_SUITE_P(Faults, LedgerFaults,
                         testing::Combine(testing::Values(Call::Open, Call::Write, Call::Sync, Call::Lock),
                                          testing::Bool(), testing::Bool()));

} // namespace halyard
