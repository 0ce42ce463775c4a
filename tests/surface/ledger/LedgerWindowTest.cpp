// The window Ledger as its operator works it: pages, news, ways to look, wishes, undo, exports.

#include "surface/bridge/ledger/LedgerWindow.h"

#include "platform/sim/SimPlatform.h"
#include "surface/frmMain.h"
#include "surface/look/ControlArrays.h"
#include "tests/surface/ledger/LedgerDesk.h"

namespace halyard {
namespace {

class LedgerWindowTest : public testing::Test, public LedgerDesk {
  protected:
    LedgerWindowTest() {
        Fill(window.hooks);
        ledger.clock = machine.CalendarMilliseconds();
    }

    void Many(int count, const char* room = "lobby") {
        for (int number = 0; number < count; ++number)
            ledger.Ban("guest" + std::to_string(number), room, L::Hand("lstABs"));
    }
    void Enter(TextBox& box, const std::string& text) {
        box.SetText(text);
        box.KeyPress(EnterKey);
    }
    std::string Top() { return table.Count() == 0 ? "" : table.At(0).cells[0]; }
    std::string Bottom() { return table.At(table.Count() - 1).cells[0]; }
    std::string ChosenLine() {
        return table.At(table.Index()).cells.empty() ? "" : table.At(table.Index()).cells[0];
    }
    void ChooseAct(const std::string& number) {
        for (int index = 0; index < table.Count(); ++index)
            if (table.At(index).cells[0] == number) table.Choose(index);
        ASSERT_EQ(ChosenLine(), number);
    }
    Lines Column(const TableBox& of, std::size_t column) {
        Lines cells;
        for (int index = 0; index < of.Count(); ++index) cells.push_back(of.At(index).cells[column]);
        return cells;
    }
    static bool Has(const TextBox& box, const std::string& part) {
        return box.Text().find(part) != std::string::npos;
    }

    SimWorld world;
    SimPlatform machine{world};
    frmMain main{machine};
    LedgerWindow window{main.Context()};
    TableBox& table = window.list.tblActs;
    UndoPage& undo = window.undo;
};

TEST_F(LedgerWindowTest, ReadsOnWhereSomebodyGoesDown) {
    Many(450);
    window.Show();
    EXPECT_EQ(table.Count(), 200);
    ChooseAct("#300");
    table.AtEnd();
    EXPECT_EQ(window.list.lblActs.Caption(), "400 acts so far.");
    table.AtEnd();
    table.AtEnd();
    EXPECT_EQ(window.list.lblActs.Caption(), "450 acts.");
    EXPECT_EQ(Bottom() + ChosenLine(), "#1#300");

    Many(4000);
    window.Written();
    window.list.Home();
    while (Bottom() != "#1") table.AtEnd();
    EXPECT_EQ(table.Count(), 4000) << "the newest have gone";
    EXPECT_EQ(Top(), "#4000");
    window.list.Home();
    EXPECT_EQ(Top(), "#4450");
}

TEST_F(LedgerWindowTest, LetsNothingNewMoveALine) {
    window.Show();
    EXPECT_EQ(window.list.lblActs.Caption(), "No act was found.");
    ledger.Act(ActKind::Ban, "bob", "lobby", L::Hand("cmdBan"), ActOutcome::Open);
    window.Written();
    EXPECT_EQ(Top(), "#1") << "there was nothing to be moved";
    ChooseAct("#1");
    table.SetTick(0, true);
    Many(12);
    ledger.File().Execute("UPDATE acts SET outcome = 1 WHERE id = 1");
    window.Written();
    window.Written();
    EXPECT_EQ(window.list.lblNew.Caption(), "12 new");
    EXPECT_EQ(Top() + ChosenLine(), "#1#1");
    EXPECT_EQ(table.At(0).cells.back(), "accepted");
    EXPECT_EQ(table.At(0).tick, TableBox::Tick::On);
    EXPECT_TRUE(Has(window.txtAct, "accepted"));

    Enter(window.txtSearch, "bob");
    Many(3);
    window.Written();
    EXPECT_FALSE(window.list.lblNew.Visible()) << "not what was searched for";
    Enter(window.txtSearch, "");
    Many(250);
    window.Written();
    EXPECT_EQ(window.list.lblNew.Caption(), "200 or more new");
    table.KeyDown(TableBox::HomeKey);
    EXPECT_EQ(Top(), "#266");
    EXPECT_FALSE(window.list.lblNew.Visible());
}

TEST_F(LedgerWindowTest, AnswersTheLastQuestionOnly) {
    Many(3);
    ledger.Ban("bob", "den", L::Op("roomboss", "ban bob"));
    window.Show();
    later = true;
    for (const auto* text : {"guest1", "nobody", "room:den"}) Enter(window.txtSearch, text);
    EXPECT_EQ(table.Count(), 0);
    while (!waiting.empty()) {
        waiting.front()();
        waiting.pop_front();
    }
    EXPECT_EQ(Column(table, 3), Lines{"bob"});
    later = false;
    int place = -1;
    window.onMistake = [&place](int at) { place = at; };
    Enter(window.txtSearch, "\xE4 kind:bun");
    EXPECT_EQ(place, 7);
    EXPECT_EQ(window.lblMistake.Caption().substr(0, 16), "At character 8: ");
    EXPECT_EQ(table.Count(), 1) << "stays";
}

TEST_F(LedgerWindowTest, LooksFromFourSidesAndGoesBack) {
    BadWord({"alice", "al1ce", "carol"});
    ledger.Ban("alice", "den", L::Op("helper", "ban alice/was rude", "was rude"));
    ledger.File().Execute("INSERT INTO evidence(act, at, room, line) VALUES(4, 0, 1, 'buy\r\nsp4m')");
    ledger.Whole(ListName::Autobans, "", "never");
    window.Show();
    ChooseAct("#4");
    EXPECT_TRUE(Has(window.txtAct, "lobby: buy\\x0D\\x0Asp4m"));
    EXPECT_FALSE(window.cmdOp.Enabled());

    table.KeyDown('R');
    EXPECT_EQ(window.txtWho.Text(), "autoword *sp4m*");
    EXPECT_EQ(Column(table, 3), (Lines{"carol", "al1ce", "alice"}));
    EXPECT_TRUE(Has(window.rule.txtRule, "Hit carol, 1 time, last by #4"));
    window.rule.chkNeverHit.SetValue(1);
    EXPECT_EQ(Column(window.rule.tblRules, 0), Lines{"autoban never"});

    ChooseAct("#2");
    table.KeyDown('P');
    EXPECT_EQ(Column(table, 0), (Lines{"#5", "#2"}));
    EXPECT_EQ(window.person.txtPerson.Text().substr(0, 46),
              "alice, now in den\r\n2 acts, 0 taken back.\r\nOn e");
    EXPECT_TRUE(Has(window.person.txtPerson, "Looks alike: al1ce, 1 act"));
    ChooseAct("#5");
    table.KeyDown('O');
    EXPECT_EQ(window.txtWho.Text(), "helper");
    EXPECT_TRUE(Has(window.op.txtOp, "1 act, 0 taken back, 0 without a reason"));
    window.op.tblOps.Choose(0);
    window.op.tblOps.DblClick();
    EXPECT_EQ(window.txtWho.Text(), "roomboss");

    for (int step = 0; step < 3; ++step) table.KeyDown(TableBox::BackKey);
    EXPECT_EQ(window.optSide.Index(), LedgerWindow::Rule);
    EXPECT_EQ(ChosenLine(), "#2");
    window.cmdBack.Press();
    EXPECT_EQ(window.optSide.Index(), LedgerWindow::All);
    EXPECT_EQ(ChosenLine(), "#4");
    EXPECT_FALSE(window.cmdBack.Enabled());

    table.Choose(-1);
    window.optSide.Select(LedgerWindow::Op);
    EXPECT_EQ(Column(window.op.tblOps, 0).size(), 2U);
    Enter(window.txtWho, "Room Boss");
    EXPECT_EQ(Column(table, 0), Lines{"#1"});
    window.optSide.Select(LedgerWindow::Person);
    Enter(window.txtWho, "nobody");
    EXPECT_TRUE(Has(window.person.txtPerson, "knows nobody"));
}

TEST_F(LedgerWindowTest, ActsUponAPersonByTheDoors) {
    BadWord({"alice"});
    window.Show();
    window.ShowPerson("Alice");
    auto& pane = window.person;
    pane.cmdBan.Press();
    pane.cmbRoom.Select(1);
    pane.cmdUnban.Press();
    EXPECT_EQ(window.lblHappened.Caption(), "alice is to be let in again.");
    rooms.back().second = "bar"; // in the slot of the den, which was left
    pane.cmdBan.Press();
    EXPECT_EQ(window.lblHappened.Caption(), "den is no longer open.");
    whyNot = "alice is immune already.";
    pane.cmdImmune.Press();
    EXPECT_EQ(window.lblHappened.Caption(), whyNot);
    whyNot.clear();
    Enter(pane.txtNote, " was warned ");
    EXPECT_TRUE(Has(pane.txtPerson, ": was warned\r\n"));
    pane.cmdForget.Press(); // answered with No
    machine.dialogs.AnswerYes();
    pane.cmdForget.Press();
    EXPECT_NE(machine.dialogs.shown.back().text.find("exports still hold the name"), std::string::npos);
    EXPECT_EQ(wishes,
              (Lines{"ban alice in 2", "unban alice in 3", "immune alice", "note was warned", "forget 2"}));
    EXPECT_TRUE(Has(pane.txtPerson, "stone 2"));
    EXPECT_FALSE(pane.cmdBan.Enabled() || pane.cmdForget.Enabled());
}

TEST_F(LedgerWindowTest, TakesBackWhatWasLookedAt) {
    BadWord({"alice", "bob", "carol"});
    ledger.Act(ActKind::Kick, "dave", "lobby", L::Op("roomboss", "kick dave"));
    window.Show();
    for (int index = 0; index < 4; ++index) table.SetTick(index, true);
    table.KeyDown('U');
    EXPECT_TRUE(undo.FrameUndo.Visible() && !window.FrameActs.Visible());
    EXPECT_EQ(Column(undo.tblPlan, 0), (Lines{"first, #1", "#5", "#4", "#3", "#2"}));
    undo.tblPlan.SetTick(1, true); // a kick has no box
    undo.tblPlan.SetTick(3, false);
    EXPECT_EQ(undo.lblPlan.Caption(), "3 of 5 steps ticked.");

    ledger.Ban("alice", "lobby", L::Op("roomboss", "ban alice"));
    undo.chkTell.SetValue(1);
    undo.cmdCarryOut.Press();
    EXPECT_EQ(wishes, Lines{}) << "the world has moved on";
    EXPECT_TRUE(Has(undo.txtMoved, "Since the preview:\r\n"));
    EXPECT_EQ(undo.tblPlan.At(3).tick, TableBox::Tick::Off) << "as it was left";
    undo.cmdCarryOut.Press();
    EXPECT_EQ(wishes, Lines{"undo and tell *sp4m* carol"}) << "a person's hand has banned alice since";

    undo.Show({1, 2, ledger.clock, "", {}, true});
    EXPECT_EQ(undo.lblProgress.Caption().substr(0, 19), "1 of 2, ends about ");
    EXPECT_FALSE(undo.cmdCarryOut.Enabled());
    undo.cmdStop.Press();
    ledger.File().Execute("UPDATE acts SET undone = 7 WHERE id = 4");
    undo.Show({2, 2, 0, "", {"carol: no answer"}, false});
    EXPECT_EQ(undo.lblProgress.Caption(), "2 of 2, 1 failed.");
    undo.cmdActs.Press();
    EXPECT_EQ(table.At(1).cells.back(), "accepted, taken back by #7");

    ChooseAct("#3");
    undo.Open({}, *window.list.Chosen());
    EXPECT_EQ(undo.lblPlan.Caption(), "No op stands behind the chosen act.");
    undo.optWhat.Select(2);
    EXPECT_EQ(undo.tblPlan.Count(), 4) << "the entry and its three bans";
    Enter(undo.txtSince, "yesterday");
    EXPECT_EQ(undo.tblPlan.Count(), 0);
    EXPECT_EQ(undo.lblPlan.Caption().substr(0, 11), "Since when?");
}

TEST_F(LedgerWindowTest, GivesActsAway) {
    Many(700);
    ledger.Ban("=1+1", "lobby", L::Op("op", "ban =1+1/\"a\", b\r\nc", "\"a\", b\r\nc"));
    window.Show();
    window.cmdCopy.Press();
    EXPECT_EQ(window.lblHappened.Caption(), "Tick acts first, or choose one.");
    ChooseAct("#701");
    table.KeyDown(TableBox::CopyKey);
    EXPECT_NE(machine.desktop.copied.find("\tlobby\top: ban =1+1/\"a\", b\\x0D\\x0Ac\t"), std::string::npos);
    const auto exports = [this](const std::string& path) {
        machine.dialogs.AnswerText(path);
        window.cmdExport.Press();
        return machine.disk.Contents(path);
    };
    const auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
    EXPECT_EQ(lines(exports("/program/a.csv")), 702);
    EXPECT_EQ(window.lblHappened.Caption(), "701 acts exported.");
    Enter(window.txtSearch, "1");
    EXPECT_EQ(exports("/program/a.JSONL").substr(0, 2), "{\"");
    machine.disk.Put("/program/old.csv", "old");
    for (int nth = 2; nth < 8; ++nth) {
        machine.disk.FailNth(nth);
        const auto kept = exports("/program/old.csv") == "old";
        machine.disk.FailNth(0);
        EXPECT_EQ(kept, window.lblHappened.Caption() == "The export could not be written.") << nth;
    }
    EXPECT_FALSE(machine.disk.Exists("/program/old.csv.part"));
    machine.dialogs.AnswerText("/program/copy.db");
    window.cmdBackUp.Press();
    EXPECT_EQ(wishes, Lines{"back up /program/copy.db"});

    window.hooks.read = nullptr;
    window.Reopened();
    EXPECT_EQ(window.list.lblActs.Caption(), "No ledger is open.");
}

} // namespace
} // namespace halyard
