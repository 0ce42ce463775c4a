// The ledger's file over time: what verifying finds, what waits and what is lost, what is pruned and
// forgotten.

#include "bridge/ledger/keeping/Keeper.h"
#include "tests/bridge/ledger/LedgerScene.h"

namespace halyard {
namespace {

TEST(Ledger, IsFoundOutWhereARowWasTamperedWith) {
    struct Case {
        const char* tampered;
        const char* found;
    };
    const Case cases[] = {
        {"DELETE FROM changes WHERE entry = 'ann' AND list = 3", "don't make the list 3"},
        {"INSERT INTO changes(run, at, act, cause, list, op, entry) SELECT run, at, act, cause, list, op, "
         "entry "
         "FROM changes WHERE entry = 'ann' AND list = 3",
         "stands behind those of a later run"},
        {"UPDATE changes SET entry = 'ann' WHERE list = 3", "doesn't fit the list 3"},
        {"UPDATE changes SET entry = 'zoe' WHERE list = 8", "Another person than its act's has change"},
        {"UPDATE acts SET cause = 1 WHERE id = 2", "Another cause than its act's has change"},
        {"UPDATE changes SET entry = CASE entry WHEN 'ann' THEN 'ben' ELSE 'ann' END WHERE list = 3",
         "don't make the list 3"},
        {"DELETE FROM causes WHERE id = 2", "No cause stands behind act #2"},
        {"DELETE FROM requests", "Not one request stands behind the answer of act #2"},
        {"UPDATE acts SET op = 99 WHERE id = 2", "The op of its cause isn't"},
        {"UPDATE changes SET before = '7' WHERE op = 4", "doesn't fit the options"},
        {"SELECT 1", nullptr},
    };
    for (const auto& [tampered, found] : cases) {
        SCOPED_TRACE(tampered);
        TestFolder folder;
        LedgerScene scene(folder.Path("ledger.db"));
        {
            const CauseScope other(scene.control.Tell(), {.kind = CauseKind::Internal});
            scene.ledger->Tell({.kind = ActKind::Answer});
        }
        scene.ledger->Flush();
        scene.OpBans(7, "bob");
        scene.Yes(7, "bob");
        Hand(scene.control.Tell(), scene.options.Controls.lstABs, [&] {
            scene.options.Autobans.Add("ann");
            scene.options.Autobans.Add("ben");
            scene.options.WordBanAll = true;
        });
        scene.End(); // with whole contents
        scene.Begin();
        scene.Rows(tampered);
        auto findings = scene.Findings();
        if (!found) {
            EXPECT_EQ(findings, Lines{});
            continue;
        }
        ASSERT_FALSE(findings.empty());
        EXPECT_TRUE(std::any_of(findings.begin(), findings.end(), [wanted = found](const auto& words) {
            return words.find(wanted) != words.npos;
        })) << findings[0];
    }
}

TEST(Ledger, WaitsForTheDiskAndSaysWhatWasLost) {
    LedgerScene scene;
    scene.Wait();
    scene.fault = DatabaseFault::Full;
    scene.OpBans(7, "bob");
    scene.Wait(60'000);
    EXPECT_EQ(scene.Told(),
              (Lines{"The ledger can't be written: The disk says no. What happens is held in memory "
                     "until it can."}));
    scene.Yes(7, "bob");
    scene.fault = DatabaseFault::None;
    scene.Wait(6000);
    EXPECT_EQ(scene.Told(), Lines{"The ledger is written again."});
    EXPECT_EQ(scene.Acts(), (Lines{"1|1|bob|1||1"}));
    EXPECT_EQ(scene.Rows("SELECT facts FROM gaps"), Lines{});

    scene.fault = DatabaseFault::Locked;
    Hand(scene.control.Tell(), scene.options.Controls.lstABs, [&] {
        for (int name = 0; name < 6000; ++name) scene.options.Autobans.Add("name" + std::to_string(name));
    });
    scene.Ejects().RemoveEject("bob");
    scene.Wait(1000);
    scene.fault = DatabaseFault::None;
    scene.Wait(6000);
    // Each had an act and a change; whole batches went.
    EXPECT_EQ(scene.Rows("SELECT facts FROM gaps"), Lines{"2500"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM acts"), Lines{"4752"});
    EXPECT_EQ(scene.Findings(), Lines{});
    scene.options.Autobans.Remove("name3");
    scene.Ban(8, "eve");
    EXPECT_EQ(scene.Findings(), Lines{});
    // What no wait helps costs its batch, not the ledger.
    scene.fault = DatabaseFault::Failed;
    scene.Ban(9, "dan");
    scene.Wait(20'000);
    scene.fault = DatabaseFault::None;
    scene.Ban(10, "fay");
    scene.Wait(6000);
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM gaps"), Lines{"2"});
    EXPECT_EQ(scene.Acts("p.key IN ('dan', 'fay')").size(), 1U);
    EXPECT_EQ(scene.Findings(), Lines{});
}

void Prune(LedgerScene& scene, const KeepDays& days) {
    Pruning pruning(days, scene.machine.CalendarMilliseconds());
    for (bool more = true; more;) scene.Work([&](Connection& file) { more = pruning.Step(file); });
}

TEST(Ledger, PrunesTextsAndActsAtACutThatStillFolds) {
    TestFolder folder;
    LedgerScene scene(folder.Path("ledger.db"));
    constexpr int Day = 24 * 60 * 60 * 1000;
    for (int day = 0; day < 10; ++day) {
        const auto name = "bob" + std::to_string(day);
        scene.ledger->LineHeard(2, name, "what");
        scene.OpBans(100 + day, name);
        scene.Yes(100 + day, name);
        scene.options.Autobans.Add(name);
        if (day == 4) scene.End(), scene.Begin();
        scene.Wait(Day);
    }
    Prune(scene, {.texts = 3});
    EXPECT_EQ(scene.Rows("SELECT count(*), count(line), count(reason) FROM causes WHERE kind = 1"),
              Lines{"10|3|3"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM evidence"), Lines{"3"});
    const auto found = [&](const std::string& word) {
        return scene.Rows("SELECT count(*) FROM words WHERE words MATCH '\"" + word + "\"'")[0];
    };
    EXPECT_EQ(found("rude"), "3");
    EXPECT_EQ(found("bob1"), "2") << "its ban and its entry";
    EXPECT_EQ(scene.Findings(), Lines{});
    Prune(scene, {.texts = 3, .acts = 6});
    EXPECT_EQ(scene.Rows("SELECT min(id), max(id), count(*) FROM acts"), Lines{"9|20|12"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM changes"), Lines{"12"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM requests"), Lines{"6"});
    EXPECT_EQ(found("bob1"), "0");
    EXPECT_EQ(scene.Findings(), Lines{});
    scene.Rows("DELETE FROM changes WHERE entry = 'bob7' AND list = 3");
    EXPECT_EQ(scene.Findings().size(), 1U) << "the fold behind the cut is alive";
    Prune(scene, {.acts = 1});
    scene.Wait(3 * Day);
    Prune(scene, {.acts = 1});
    scene.options.Autobans.Remove("bob2");
    EXPECT_EQ(scene.Acts().back(), "21|7|bob2|7||0|bob2") << "no number is given out twice";
}

TEST(Ledger, ForgetsAPersonWhoStandsOnNoEjectList) {
    TestFolder folder;
    LedgerScene scene(folder.Path("ledger.db"));
    Keeper keeper(scene.machine, *scene.ledger);
    const auto forget = [&](const std::string& name) {
        std::optional<ForgetOutcome> outcome;
        keeper.Forget(name, [&](ForgetOutcome now, const std::string& failure) {
            EXPECT_EQ(failure, "");
            outcome = now;
        });
        scene.Wait(3000);
        return outcome;
    };
    scene.ledger->LineHeard(2, "Mal Lory", "private words");
    scene.OpBans(7, "mallory", "mallory was rude");
    scene.Yes(7, "mallory");
    scene.options.Autobans.Add("mallory");
    scene.options.Autobans.Remove("mallory");
    scene.ledger->AddNote(NoteKind::Note, "mallory", "", "mallory again");
    EXPECT_EQ(forget("Mal Lory"), ForgetOutcome::OnEjectList);
    EXPECT_EQ(forget("stranger"), ForgetOutcome::Unknown);
    scene.End(), scene.Begin(); // whole contents hold the name
    scene.Ejects().RemoveEject("mallory");
    EXPECT_EQ(scene.Findings(), Lines{});
    EXPECT_EQ(forget("Mal Lory"), ForgetOutcome::Forgotten);
    EXPECT_EQ(scene.Findings(), Lines{});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM acts a JOIN persons p ON p.id = a.person WHERE p.forgotten"),
              Lines{"5"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM words WHERE words MATCH 'mallory OR rude'"), Lines{"0"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM words WHERE words MATCH '\"\xEE\x80\x80k1\"'"), Lines{"1"});
    for (const auto& name : folder.Names()) {
        const auto bytes = folder.Bytes(folder.Path(name));
        EXPECT_EQ(bytes.find("mallory"), bytes.npos) << name;
        EXPECT_EQ(bytes.find("private words"), bytes.npos) << name;
    }
    scene.OpBans(8, "mallory");
    EXPECT_EQ(scene.Acts("a.id = (SELECT max(id) FROM acts)"), (Lines{"6|1|mallory|0||1"}));
    scene.ledger->Records()->Maintain([&](Connection& file) { BackUp(file, folder.Path("copy.db")); },
                                      [](const DatabaseResult& result) { EXPECT_TRUE(result.Ok()); });
    scene.ledger->Records()->Maintain([&](Connection& file) { BackUp(file, folder.Path("copy.db")); },
                                      [](const DatabaseResult& result) { EXPECT_FALSE(result.Ok()); });
}

} // namespace
} // namespace halyard
