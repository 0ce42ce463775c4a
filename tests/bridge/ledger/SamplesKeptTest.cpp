// The minutes of the watch in the ledger's file: a file from before there were any, the way in and out, and
// how long they stay.

#include "bridge/watch/SampleRows.h"
#include "platform/sqlite/Opening.h"
#include "tests/bridge/ledger/LedgerScene.h"

namespace halyard {
namespace {

constexpr std::int64_t DayMinutes = 24 * 60;

/// A ledger as the first version wrote it, with one act.
void PutFirstVersion(const std::string& path) {
    auto spec = LedgerSpec(path, 0);
    spec.migrations.resize(1);
    std::erase_if(spec.tables, [](const std::string& table) {
        return table == "samples" || table == "alarms" || table == "guard_counts";
    });
    const auto old = OpenConnection(spec, OpenMode::ReadWrite);
    ASSERT_TRUE(old.connection) << old.result.words;
    EXPECT_TRUE(old.connection->Execute(
        "INSERT INTO runs(began, ended, version) VALUES(1, 2, '1.9');"
        "INSERT INTO persons(id, key, spelled, indexed, skeleton) VALUES(5, 'bob', 'Bob', 'Bob', 'bob');"
        "INSERT INTO causes(id, kind) VALUES(1, 3);"
        "INSERT INTO acts(id, run, at, cause, kind, person, outcome) VALUES(1, 1, 1, 1, 1, 5, 1);"));
}

TEST(KeptSamples, ComeIntoAnOlderFileAndGoAfterAMonth) {
    TestFolder folder;
    const auto path = folder.Path("ledger.db");
    PutFirstVersion(path);
    LedgerScene scene(path);
    scene.Wait();
    EXPECT_EQ(scene.Told(), Lines{}) << "nothing to say of an upgrade that went well";
    EXPECT_EQ(scene.Acts("a.id = 1"), Lines{"1|1|bob|1||3"});
    EXPECT_EQ(scene.Rows("PRAGMA user_version"), Lines{"2"});

    const auto today = scene.machine.CalendarMilliseconds() / 60'000;
    SampleFact sample;
    int value = 0;
    for (auto* field : {&sample.online, &sample.rooms, &sample.people, &sample.ratedBans, &sample.ratedLines,
                        &sample.heard, &sample.said, &sample.dropped, &sample.linesWaiting,
                        &sample.bansWaiting, &sample.byAutoban, &sample.byAutoword, &sample.byGhost,
                        &sample.byICQ, &sample.byChars, &sample.byOps, &sample.byOthers})
        *field = ++value;
    const auto keep = [&](std::int64_t minute) {
        sample.minute = minute;
        scene.ledger->Keep(SampleFact(sample));
    };
    for (std::int64_t minute = 0; minute < 500; ++minute) keep(today - 31 * DayMinutes + minute);
    keep(today - 29 * DayMinutes);
    keep(today - 1);
    keep(today - 1); // a clock that was set back
    for (const int days : {401, 399}) {
        const auto day = today / DayMinutes - days;
        scene.ledger->Keep(AlarmFact{day * DayMinutes * 60'000, 1, "lobby", 1, "lost"});
        scene.ledger->Keep(GuardFact{day, "stops", true, 3});
    }
    scene.ledger->Flush();
    std::vector<SampleFact> read;
    scene.ledger->Read([&](Connection& file) { read = ReadSamples(file, today - DayMinutes); }, {});
    EXPECT_EQ(read, std::vector<SampleFact>{sample});

    Pruning pruning({.texts = 0, .acts = 0}, scene.machine.CalendarMilliseconds());
    int steps = 0;
    for (bool more = true; more; ++steps) scene.Work([&](Connection& file) { more = pruning.Step(file); });
    EXPECT_GE(steps, 4) << "no step takes long";
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM samples"), Lines{"2"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM alarms"), Lines{"1"});
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM guard_counts"), Lines{"1"});
    EXPECT_EQ(scene.Acts("a.id = 1").size(), 1U);
}

} // namespace
} // namespace halyard
