// The fourteen list commands: what they change, what they answer, what they refuse.

#include "tests/commands/RoomScene.h"

namespace halyard {

namespace {

struct Step {
    const char* line;
    int chatSend;
    const char* name;
};

class ListCommandsTest : public RoomScene {
  protected:
    void Walk(const std::vector<Step>& steps) {
        for (const auto& step : steps)
            EXPECT_EQ(Answers("Judge", step.line), Lines{Send(step.chatSend, step.name)}) << step.line;
    }
};

TEST_F(ListCommandsTest, EveryAnswerOfEveryCommand) {
    Walk({{"op al", 1, "al"},
          {"op AL", 5, "al"},
          {"lop zz", 68, "zz"},
          {"uop zz", 69, "zz"},
          {"uop al", 65, "al"},
          {"lop al", 60, "al"},
          {"lop al", 64, "al"},
          {"unop al", 113, "al"},
          {"uop al", 61, "al"},
          {"unop al", 2, "al"},
          {"unop al", 6, "al"},
          {"imm bo", 9, "bob"},
          {"imm bob", 13, "bob"},
          {"limm zz", 78, "zz"},
          {"uimm zz", 79, "zz"},
          {"uimm bob", 75, "bob"},
          {"limm bob", 70, "bob"},
          {"limm bob", 74, "bob"},
          {"unimm bob", 114, "bob"},
          {"uimm bob", 71, "bob"},
          {"unimm bob", 10, "bob"},
          {"unimm bob", 14, "bob"},
          {"ab bo", 17, "bo"},
          {"ab bo", 21, "bo"},
          {"unab bo", 18, "bo"},
          {"unab bo", 22, "bo"},
          {"aw bad word", 25, "badword"},
          {"aw badword", 29, "badword"},
          {"unaw badword", 26, "badword"},
          {"unaw badword", 30, "badword"},
          {"lban b*d", 80, "b*d"},
          {"lban b*d", 84, "b*d"},
          {"uban b*d", 81, "b*d"},
          {"uban b*d", 85, "b*d"},
          {"ab *a*b*", 17, "*ab"},
          {"lban *a*b", 80, "*ab"}});
    EXPECT_EQ(told.size(), 36U + 7) << "36 lines, and 7 times a lock came or went";
    EXPECT_EQ(options.Controls.lstOps.ListCount() + options.Controls.lstImms.ListCount() +
                  options.Controls.lstAWs.ListCount(),
              0);
    EXPECT_EQ(options.Controls.lstABs.List(0), "*ab");
}

TEST_F(ListCommandsTest, LengthsAndLists) {
    options.PartialOn = {};
    std::string hundred(100, 'a');
    const struct {
        const char* ccom;
        int size, done;
        bool limited;
    } rows[] = {
        {"op", 7, 1, true},      {"unop", 8, 6, true},    {"imm", 15, 9, true},   {"unimm", 16, 14, true},
        {"ab", 23, 17, true},    {"unab", 24, 22, true},  {"aw", 31, 25, true},   {"unaw", 32, 30, true},
        {"lop", 66, 68, true},   {"uop", 67, 69, true},   {"limm", 76, 78, true}, {"uimm", 77, 79, true},
        {"lban", 86, 80, false}, {"uban", 87, 85, false},
    };
    for (const auto& row : rows) {
        std::string ccom = row.ccom;
        EXPECT_EQ(Answers("Judge", ccom), Lines{Send(row.size)}) << ccom;
        EXPECT_EQ(Answers("Judge", ccom + "a,,qq"), (Lines{Send(row.size), Send(row.done, "qq")})) << ccom;
        auto longer = Answers("Judge", ccom + hundred + "a");
        ASSERT_EQ(longer.size(), 1U);
        EXPECT_EQ(longer[0] == Send(row.size), row.limited) << ccom;
        for (auto* list : {&options.Ops, &options.Immunes}) list->Remove("qq");
        for (auto* list : {&options.Autobans, &options.Autowords, &options.LockBans}) list->Remove("qq");
        EXPECT_NE(Answers("Judge", ccom + hundred), Lines{Send(row.size)}) << ccom;
    }
    EXPECT_EQ(Answers("Judge", "ab ***"), Lines{Send(23)});
    EXPECT_EQ(Answers("Judge", "lban ***"), Lines{Send(86)});
}

TEST_F(ListCommandsTest, ANameWithColonsOrAtIsGuardedInTheAnswer) {
    EXPECT_EQ(Answers("Judge", "ab a.b@c:d"), Lines{Send(17, "a . b @ c : d")});
    EXPECT_EQ(options.Autobans.Item(1), "a.b@c:d");
}

TEST_F(ListCommandsTest, AnOpWhoComesBackHasTheOldDigits) {
    Answers("Judge", "op al");
    EXPECT_EQ(options.Perms.Item("al"), DefaultPerms);
    options.SetPerms("al", FullPerms);
    Answers("Judge", "unop al");
    EXPECT_EQ(options.Perms.Item("al"), FullPerms);
    options.UniPerms = "0";
    Answers("Judge", "op al");
    EXPECT_EQ(options.Perms.Item("al"), FullPerms);
    Answers("Judge", "op bea");
    EXPECT_EQ(options.Perms.Item("bea"), "0");
    engine.Lists().AddOp("Cle O", 1, "111");
    EXPECT_EQ(options.Perms.Item("cleo"), "111");
}

TEST_F(ListCommandsTest, AutoImmuneAnswersInEveryRoom) {
    OpenRoom("Cellar");
    options.AutoImm = true;
    EXPECT_EQ(Answers("Judge", "op al"), (Lines{Send(1, "al"), Send(9, "al"), Send(9, "al")}))
        << "Lobby for the op; Cellar at once and Lobby after its pause for the immune";
}

TEST_F(ListCommandsTest, CountsShowTheListBeforeTheChange) {
    auto shown = [this](int label) { return counters.lblStat[static_cast<std::size_t>(label)].Caption(); };
    Answers("Judge", "ab one,two");
    EXPECT_EQ(shown(2), "1");
    Answers("Judge", "unab one");
    EXPECT_EQ(shown(2), "2");
    Answers("Judge", "unab one");
    EXPECT_EQ(shown(2), "2");
}

TEST_F(ListCommandsTest, AChainOverManyPeopleFoldsItsNames) {
    for (int number = 1; number <= 1000; ++number) Joins("guest" + std::to_string(number));
    options.ChainOn[0] = true;
    transcript.clear();
    Says("Judge", "op guest, bob");
    EXPECT_EQ(options.Ops.Count(), 1001U);
    EXPECT_EQ(options.Ops.Item("bob"), "");
    world.RunFor(8300);
    ASSERT_EQ(transcript.size(), 2U);
    EXPECT_EQ(transcript[0], Send(1, "guest1"));
    EXPECT_LE(transcript[1].size(), 232U);
}

} // namespace

} // namespace halyard
