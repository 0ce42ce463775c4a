// The watch over the whole bot: what the foot line says, and the pages of the window Watch.

#include "base/Collection.h"
#include "bridge/watch/History.h"
#include "surface/bridge/Bridge.h"
#include "surface/bridge/watch/FootWords.h"
#include "tests/surface/DeskScene.h"

namespace halyard {
namespace {

class WatchScene : public DeskScene {
  protected:
    WatchScene() { bridge.Start(); }

    Bridge bridge{window};
    WatchWindow& watch = bridge.watchWindow;

    Lines Foot() const {
        Lines words;
        for (const auto& label : bridge.foot.lblStanding) words.push_back(label.Caption());
        return words;
    }
    static Lines Column(const TableBox& table, std::size_t column) {
        Lines cells;
        for (int row = 0; row < table.Count(); ++row) cells.push_back(table.At(row).cells.at(column));
        return cells;
    }
    /// Up to the calendar's next minute, and into it.
    void TurnMinute() {
        Wait(60 - static_cast<double>(machine.CalendarMilliseconds() % 60'000) / 1000 + 0.01);
    }
    std::string Point() const { return watch.history.lblPoint.Caption(); }
};

TEST_F(WatchScene, SaysInSixWordsHowTheBotIs) {
    EXPECT_EQ(Foot(), (Lines{"Off line", "No room", "Rates free", "Nothing waits", "No ledger", "No alarm"}));
    Set(boxes.chkAutoLogin, true);
    Set(boxes.chkRejoinError, true);
    SignOn();
    Join("lobby");
    people.Enter("lobby", "alice");
    Wait(1);
    EXPECT_EQ(Foot(),
              (Lines{"Online", "1 room", "Rates free", "Nothing waits", "Ledger not written", "No alarm"}))
        << "this machine has no database";
    const auto& connection = bridge.foot.lblStanding[0];
    const auto good = connection.BackColor();

    people.SetRate("lobby", "harbourbot", 5, RateCode::Limit);
    Wait(1);
    EXPECT_EQ(Foot()[2], "Limited: lobby");
    people.SetRate("lobby", "harbourbot", 5, RateCode::Clear);
    Wait(1);
    EXPECT_EQ(Foot()[2], "Rates free");

    int painted = 0;
    for (auto& label : bridge.foot.lblStanding) label.onView = [&] { ++painted; };
    for (int line = 0; line < 40; ++line) people.Say("lobby", "alice", "talk"), Wait(0.5);
    EXPECT_EQ(painted, 0) << "nothing that it says is another";
    for (int turn = 0; turn < 50; ++turn) {
        people.SetRate("lobby", "harbourbot", 5, turn % 2 ? RateCode::Clear : RateCode::Limit);
        Wait(0.02);
    }
    EXPECT_GT(painted, 0);
    EXPECT_LE(painted, 3 * 5) << "words and two colours, four times a second";

    people.Drop("harbourbot");
    Wait(0.6);
    EXPECT_EQ(Foot()[0], "Lost, coming back");
    EXPECT_NE(connection.BackColor(), good);
    Wait(60);
    EXPECT_EQ(Foot()[0], "Online");
    EXPECT_EQ(connection.BackColor(), good);

    bridge.foot.Tell("something");
    EXPECT_FALSE(bridge.foot.FrameStanding.Visible());
    Wait(11);
    EXPECT_TRUE(bridge.foot.FrameStanding.Visible());
    bridge.foot.lblStanding[2].Click();
    EXPECT_TRUE(watch.Loaded());
    bridge.bar.mnuFootLine.Click();
    EXPECT_FALSE(bridge.foot.FrameFoot.Visible());
    EXPECT_NE(machine.disk.Contents("/config/bridge.toml").find("[watch]\nfoot = false\n"),
              std::string::npos);
    Bridge anew(window);
    anew.Start();
    EXPECT_FALSE(anew.foot.FrameFoot.Visible());
    EXPECT_EQ(anew.bar.mnuFootLine.Caption(), "Show Foot Line");
}

TEST(FootWords, SayWhatIsStuckAndWhatIsLost) {
    SimWorld world;
    SimPlatform machine(world);
    Telling telling;
    Truth truth(machine, telling);
    const auto says = [&](std::size_t field, LedgerState ledger = LedgerState::Kept, std::size_t alarms = 0) {
        return FootWords(truth, world.Now(), ledger, alarms)[field];
    };
    truth.SignOnBegun("bot");
    EXPECT_EQ(says(0).words, "Signing on");
    const auto stuck = NextStuck(truth, world.Now());
    ASSERT_GT(stuck, world.Now());
    world.RunFor(stuck - world.Now());
    EXPECT_EQ(says(0).words, "Sign-on stuck");
    EXPECT_EQ(says(0).level, FootField::Level::Bad);
    truth.RoomOpened(2, "lobby", 4);
    truth.RoomEntered(2, "lobby", 4);
    truth.RoomOpened(3, "den", 4);
    truth.RoomEntered(3, "den", 4);
    truth.RateLevel(2, 1, true, 1000);
    EXPECT_EQ(says(2).words, "Limited: lobby");
    truth.RateLevel(3, 5, true, -1);
    EXPECT_EQ(says(2).words, "2 rooms limited");
    for (std::int32_t id = 1; id <= 21; ++id) truth.BanWanted(2, id, BanKind::Ban, "ann", "");
    EXPECT_EQ(says(3).words, "21 bans wait");
    EXPECT_EQ(says(3).level, FootField::Level::Care);
    truth.RoomLeft(3, "den", "error");
    Collection<std::string> awaited;
    awaited.Add("den:4:0");
    awaited.Add("attic:4:0");
    truth.RoomsAwaited(awaited);
    EXPECT_EQ(says(1).words, "1 room, 2 lost") << "one that is absent and awaited counts once";
    EXPECT_EQ(says(4, LedgerState::NotWritten).level, FootField::Level::Bad);
    EXPECT_EQ(says(5, LedgerState::None, 2).words, "2 alarms");
}

TEST_F(WatchScene, ListsWhatStandsAndWhatWaitsAndDropsIt) {
    SignOn();
    Join("lobby");
    MakeOp("alice");
    for (const auto* name : {"alice", "ann", "ben", "cem"}) people.Enter("lobby", name);
    Wait(15);
    watch.ShowAt(WatchWindow::Now);
    EXPECT_EQ(Column(watch.now.tblNow, 0),
              (Lines{"Account Harbour Bot", "Main connection", "Navigation", "Room lobby"}));
    EXPECT_EQ(Column(watch.now.tblNow, 8)[3], "5");
    watch.now.tblNow.Choose(3);
    for (const auto* said : {"ban ann", "ban ben", "ban cem", "aw spam", "aw more"})
        people.Say("lobby", "alice", said), Wait(0.1);
    Wait(0.4);
    EXPECT_EQ(watch.now.tblNow.Index(), 3) << "what is refreshed stays chosen";
    EXPECT_NE(watch.now.txtNow.Text().find("Lines/min: 5"), std::string::npos) << watch.now.txtNow.Text();

    watch.optPage.Select(WatchWindow::Waiting);
    const auto& waiting = watch.waiting.tblWaiting;
    ASSERT_GE(waiting.Count(), 2);
    for (const auto& by : Column(waiting, 3)) EXPECT_EQ(by, "op alice");
    EXPECT_FALSE(watch.waiting.cmdDrop.Enabled());
    watch.waiting.tblWaiting.Choose(waiting.Count() - 1);
    const auto dropped = waiting.At(waiting.Count() - 1).cells;
    const auto before = waiting.Count();
    watch.waiting.cmdDrop.Press();
    EXPECT_EQ(watch.waiting.lblDropped.Caption(), "Dropped.");
    EXPECT_EQ(waiting.Count(), before - 1);
    EXPECT_EQ(watch.waiting.tblGone.At(0).cells[3], dropped[2]);
    EXPECT_EQ(watch.waiting.tblGone.At(0).cells[4], "the operator took it out");
    watch.waiting.tblWaiting.Choose(0);
    watch.waiting.cmdDropOp.Press();
    EXPECT_EQ(waiting.Count(), 0);
    Wait(1);
    EXPECT_EQ(Foot()[3], "Nothing waits");

    watch.Form_Unload();
    people.Say("lobby", "alice", "ban dan");
    Wait(5);
    EXPECT_EQ(Column(watch.now.tblNow, 0).size(), 4U) << "nothing is refreshed that isn't shown";
}

TEST_F(WatchScene, RemembersTheMinutesAndPointsAtThem) {
    SignOn();
    Join("lobby");
    MakeOp("alice");
    people.Enter("lobby", "alice");
    people.Enter("lobby", "bob");
    TurnMinute();
    const auto minute = machine.CalendarMilliseconds() / 60'000;
    for (int line = 0; line < 7; ++line) people.Say("lobby", "alice", "talk"), Wait(1);
    people.Say("lobby", "alice", "ban bob");
    Wait(10);
    people.Drop("harbourbot");
    TurnMinute();
    Wait(30);
    std::string asked;
    watch.hooks.openLedger = [&](std::int64_t since, std::int64_t until) {
        asked = std::to_string(since / 60'000 - minute) + " to " + std::to_string(until / 60'000 - minute);
    };
    watch.ShowAt(WatchWindow::History);
    auto& strips = watch.history.strips;
    EXPECT_EQ(strips.Columns(), 60);
    EXPECT_EQ(strips.Point(), 59) << "now";
    EXPECT_NE(Point().find("off line"), std::string::npos) << Point();
    strips.SetPoint(58);
    EXPECT_NE(Point().find("on line for 1"), std::string::npos) << Point();
    EXPECT_NE(Point().find("8 lines heard"), std::string::npos) << Point();
    EXPECT_NE(Point().find("1 ban (1 by ops)"), std::string::npos) << Point();
    EXPECT_EQ(strips.Caption(), Point());
    strips.DblClick();
    EXPECT_EQ(asked, "0 to 1");
    strips.SetPoint(-5);
    EXPECT_NE(Point().find("not running"), std::string::npos) << Point();
    EXPECT_TRUE(strips.All()[0].bars[0].empty());

    strips.SetPoint(58);
    TurnMinute();
    Wait(2);
    EXPECT_EQ(strips.Point(), 57) << "the point stays at its minute";
    strips.KeyDown('T');
    EXPECT_TRUE(watch.history.FrameTable.Visible());
    EXPECT_EQ(watch.history.tblHistory.At(watch.history.tblHistory.Index()).cells[5], "8");
    watch.history.optSpan.Select(1);
    EXPECT_EQ(strips.Columns(), 144);
    EXPECT_NE(Point().find("10 minutes: on line for"), std::string::npos) << Point();
}

} // namespace
} // namespace halyard
