// How often guards acted, as the ledger keeps it.

#include "bridge/guards/GuardBook.h"

#include "tests/bridge/ledger/LedgerScene.h"

namespace halyard {
namespace {

TEST(GuardBook, CountsByTheDayAndTellsOfActsOnceAMinute) {
    constexpr auto guard = Departure::KicksEndAsKicks;
    LedgerScene scene;
    bool kept = true;
    GuardBook book(scene.machine, scene.control,
                   [&]() -> Ledger* { return kept ? &*scene.ledger : nullptr; });
    const auto counted = [&] {
        std::string text;
        book.Ask([&](const GuardCounts& counts) {
            const auto& count = counts[static_cast<std::size_t>(guard)];
            text = std::to_string(count.acted) + " and " + std::to_string(count.wouldHave);
        });
        return text;
    };
    const auto ask = [&](bool acts, const std::string& who) { book.GuardAsked(guard, acts, 2, who); };
    const auto acts = [&] { return scene.Acts("c.entry = 'kicks-end-as-kicks' OR a.kind = 16").size(); };
    ask(false, "bob"), ask(true, "eve"), ask(true, "eve");
    EXPECT_EQ(counted(), "2 and 1");
    EXPECT_EQ(acts(), 1U);
    scene.Wait(60'000);
    ask(true, "eve");
    EXPECT_EQ(acts(), 2U);
    scene.Wait(60'000);
    EXPECT_EQ(scene.Rows("SELECT guard, acted, count FROM guard_counts"),
              (Lines{"kicks-end-as-kicks|0|1", "kicks-end-as-kicks|1|3"}));
    kept = false;
    ask(false, "bob");
    EXPECT_EQ(counted(), "0 and 1") << "what came since";
    kept = true;
    EXPECT_EQ(counted(), "3 and 2");
    EXPECT_EQ(scene.Findings(), Lines{});
    for (int day = 0; day < GuardBook::Days; ++day) scene.Wait(86'400'000);
    EXPECT_EQ(counted(), "0 and 0");
}

} // namespace
} // namespace halyard
