// The ledger at the desk of the whole bot: what an op's bad word did is taken back, and ops and those who are
// out are answered by instant message.

#include "base/Latin1.h"
#include "base/Text.h"
#include "surface/bridge/Bridge.h"
#include "tests/surface/DeskScene.h"
#include "tests/surface/ledger/MemoryDatabase.h"

namespace halyard {
namespace {

class TakenBack : public DeskScene {
  protected:
    TakenBack() {
        machine.databases = [] { return std::make_unique<MemoryDatabase>(); };
        bridge.Start();
        const auto passOn = network.onEvent;
        network.onEvent = [this, passOn](const PracticeEvent& event) {
            passOn(event);
            if (event.who == "Harbour Bot" && event.room.empty() && event.what.starts_with("sends "))
                ims.push_back(ToUtf8(event.what));
        };
        SignOn();
        Join("lobby");
        MakeOp("roomboss");
        Type(window.people.txtAddImm, "roomboss"); // who says the word may go on
        people.Enter("lobby", "roomboss");
        window.ByHand(boxes.chkAWOn, [this] { boxes.chkAWOn.SetValue(1); });
    }
    void Say(const std::string& who, const std::string& text, double seconds = 4) {
        people.Say("lobby", who, text);
        Wait(seconds);
    }
    /// Three guests fall to one bad word.
    void BadWord() {
        Say("roomboss", "aw day/no weather");
        for (const char* guest : {"ann", "ben", "cem"}) {
            people.Enter("lobby", guest);
            Say(guest, "a fine day", 3);
        }
        Wait(5);
    }
    UndoPlan Plan(const UndoAsk& ask) {
        UndoPlan plan;
        bridge.ledger.Open()->ledger.Read(
            [&plan, ask, now = bridge.ledgerWindow.hooks.desk()](Connection& file) {
                plan = PlanUndo(file, ask, now);
            },
            [](const DatabaseResult& result) { EXPECT_TRUE(result.Ok()) << result.words; });
        return plan;
    }
    std::int64_t Rule() {
        std::int64_t row = 0;
        bridge.ledger.Open()->ledger.Read(
            [&row](Connection& file) {
                for (const auto& rule : ReadRules(file, "day")) row = rule.row;
            },
            [](const DatabaseResult&) {});
        return row;
    }
    std::string Out() const {
        std::string names;
        for (const auto& name : control.GetEjectList("lobby", 0)) names += name + " ";
        return names;
    }
    void GivePerms(const std::string& perms) {
        window.ByHand(window.people.cmdSetPerms, [&] { window.options.SetPerms("roomboss", perms); });
    }
    /// What the bot sends by IM within a minute of this one.
    Lines Asked(const std::string& who, const std::string& text) {
        ims.clear();
        people.Message(who, "harbourbot", text);
        Wait(60);
        return ims;
    }
    void Switch(bool answers, bool appeals, const std::string& whom = {}) {
        LedgerTerms terms;
        terms.answers = answers;
        terms.appeals = appeals;
        terms.whomToAsk = whom;
        bridge.ledger.Take(terms);
    }

    Lines ims;
    Bridge bridge{window};
};

TEST_F(TakenBack, WordAndBansByOneStep) {
    BadWord();
    EXPECT_EQ(Out(), "ann ben cem ");
    const UndoAsk ask{.what = UndoAsk::What::Rule, .acts = {}, .row = Rule()};
    const auto plan = Plan(ask);
    ASSERT_EQ(plan.first.size(), 1U);
    EXPECT_TRUE(plan.first.front().ticked);
    ASSERT_EQ(plan.items.size(), 4U);
    EXPECT_FALSE(plan.items[0].mayTick); // the bot's own line told the word, and nobody bans the owner
    Start();
    window.ByHand(bridge.ledgerWindow.undo.cmdCarryOut,
                  [&] { EXPECT_EQ(bridge.ledgerWindow.hooks.carryOut(plan, ask, true), ""); });
    EXPECT_EQ(window.options.Autowords.Count(), 0U);
    EXPECT_EQ(bridge.ledgerWindow.hooks.carryOut(plan, ask, false), "Another undo is under way.");
    Wait(20);
    // The word goes by its panel's door, which says so; of those who are let in again nothing is said.
    EXPECT_EQ(Happened("Harbour Bot"),
              (Lines{"0 Harbour Bot unbans cem", "2 Harbour Bot unbans ben", "4 Harbour Bot unbans ann",
                     "7 Harbour Bot says « Word Banned: ann, cem, ben, matches: day, Bans: 0 »",
                     "15 Harbour Bot says « AW Removed: day »"}));
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(ims.size(), 3U);
    EXPECT_TRUE(people.Enter("lobby", "ann"));
    const auto again = Plan(ask);
    EXPECT_TRUE(TasksOf(again).empty());
    EXPECT_EQ(bridge.ledgerWindow.hooks.carryOut(again, ask, false), "Nothing is ticked.");
}

TEST_F(TakenBack, NothingIsForcedWhereTheRoomHoldsItUp) {
    BadWord();
    const UndoAsk ask{.what = UndoAsk::What::Rule, .acts = {}, .row = Rule()};
    auto plan = Plan(ask);
    people.SetRate("lobby", "harbourbot", 1, RateCode::Limit);
    Wait(1);
    Start();
    EXPECT_EQ(bridge.ledgerWindow.hooks.carryOut(plan, ask, false), "");
    Wait(30);
    EXPECT_EQ(Happened("unbans"), Lines{});
    EXPECT_EQ(bridge.ledger.Open()->undo.HeldUpBy(), "lobby is rate limited");
    people.SetRate("lobby", "harbourbot", 1, RateCode::Clear);
    ASSERT_TRUE(world.RunUntil([&] { return Happened("unbans").size() == 1; }, 5000));
    bridge.ledgerWindow.hooks.stop();
    Wait(20);
    EXPECT_EQ(Happened("unbans").size(), 1U);
    const auto& steps = bridge.ledger.Open()->undo.Steps();
    EXPECT_EQ(std::count_if(steps.begin(), steps.end(),
                            [](const auto& step) { return step.outcome == UndoOutcome::Stopped; }),
              3);
    EXPECT_EQ(Out().empty(), false);
}

TEST_F(TakenBack, OpsAreAnswered) {
    BadWord();
    EXPECT_EQ(Asked("roomboss", "why ann"), Lines{}); // the switch is off
    Switch(true, false);
    EXPECT_EQ(Asked("ann", "why ann"), Lines{}); // no op
    const auto why = Asked("roomboss", "<b>WHY Ann</b>");
    ASSERT_EQ(why.size(), 1U);
    EXPECT_NE(why[0].find("ann is out of lobby since "), std::string::npos) << why[0];
    EXPECT_NE(why[0].find("autoword day"), std::string::npos) << why[0];
    EXPECT_EQ(Asked("roomboss", "why"), Lines{});           // no command of it
    EXPECT_EQ(Asked("roomboss", "lobby:why ann"), Lines{}); // the desk's own

    EXPECT_NE(Asked("roomboss", "note ann came twice")[0].find("Noted, #"), std::string::npos);
    EXPECT_NE(Asked("roomboss", "health")[0].find("lobby: 2 people, owner"), std::string::npos);
    EXPECT_NE(Asked("roomboss", "last 2")[0].find("list-add day"), std::string::npos);

    GivePerms("0000000000000000000000000000");
    EXPECT_NE(Asked("roomboss", "undo ann")[0].find("You can't take back #"), std::string::npos);
    EXPECT_EQ(Out(), "ann ben cem ");
    GivePerms(FullPerms);
    EXPECT_NE(Asked("roomboss", "undo ann")[0].find("is taken back."), std::string::npos);
    EXPECT_EQ(Out(), "ben cem ");
    EXPECT_EQ(window.options.Autowords.Count(), 1U); // the rule stays the operator's
    EXPECT_NE(Asked("roomboss", "undo")[0].find("is taken back."), std::string::npos);
    EXPECT_EQ(window.options.Autowords.Count(), 0U);
    EXPECT_EQ(Happened("says #"), Lines{}); // never the room
}

TEST_F(TakenBack, WhoIsOutIsHeardOnceADay) {
    BadWord();
    Switch(false, true, "Write to the harbour office.");
    EXPECT_EQ(Asked("stranger", "let me in"), Lines{});
    const auto answer = Asked("ann", "I said nothing wrong!");
    ASSERT_EQ(answer.size(), 1U);
    EXPECT_NE(answer[0].find("You are out of lobby since "), std::string::npos) << answer[0];
    EXPECT_NE(answer[0].find("Write to the harbour office."), std::string::npos);
    EXPECT_EQ(answer[0].find("roomboss"), std::string::npos);
    EXPECT_EQ(answer[0].find("day"), std::string::npos);
    EXPECT_EQ(Asked("ann", "please"), Lines{});
    for (int more = 0; more < 3; ++more) Asked("ann", "please");
    EXPECT_EQ(bridge.ledger.Open()->appeals.Count(), Appeals::MostKept);
    Wait(24 * 3600);
    EXPECT_EQ(Asked("ann", "please").size(), 1U);
    auto& terms = bridge.ledger.Open()->appeals.terms;
    terms.noAppealOf = {"ben"};
    EXPECT_EQ(Asked("ben", "please"), Lines{});
}

TEST_F(TakenBack, SettingsHoldAtOnceAndAreKept) {
    auto& terms = bridge.ledgerTerms;
    const auto apply = [&] {
        terms.cmdApply.Press();
        return terms.lblApplied.Caption();
    };
    terms.Show();
    EXPECT_EQ(terms.txtTextDays.Text(), "180");
    terms.txtActDays.SetText("36501");
    EXPECT_EQ(apply(), "Not applied: days are whole numbers from 0 to 36500.");
    terms.txtActDays.SetText("400");
    terms.chkAppeals.SetValue(1);
    terms.txtWhomToAsk.SetText("ask \"Ann\"");
    Type(terms.txtNoAppeal, "Ben Ny");
    Type(terms.txtNoAppeal, "benny");
    EXPECT_EQ(apply(), "Applied.");
    auto& parts = *bridge.ledger.Open();
    EXPECT_EQ(parts.keeper.days.acts, 400);
    EXPECT_EQ(parts.appeals.terms.noAppealOf, Lines{"benny"});
    BridgeFile file(machine.disk);
    file.Load();
    EXPECT_EQ(file.Problems(), Lines{});
    EXPECT_EQ(file.Ledger(), parts.appeals.terms);
    EXPECT_EQ(file.Ledger().whomToAsk, "ask \"Ann\"");

    terms.chkKeep.SetValue(0);
    EXPECT_EQ(apply(), "Applied.");
    EXPECT_EQ(bridge.ledger.Open(), nullptr);
    EXPECT_EQ(control.Tell().lines, nullptr);
    const auto other = machine.disk.Hold("/bridge/halyard.lock", "somebody");
    terms.chkKeep.SetValue(1);
    apply();
    EXPECT_EQ(bridge.ledger.Open(), nullptr);
    EXPECT_EQ(bridge.foot.lblFoot.Caption(),
              "No ledger is kept here: another window has /bridge, or it can't be written.");
    Say("roomboss", "aw day/no weather"); // the desk goes on
    EXPECT_EQ(window.options.Autowords.Count(), 1U);
}

} // namespace
} // namespace halyard
