// kick, ban, gban, unban and tban.

#include "tests/commands/RoomScene.h"

namespace halyard {

namespace {

class EnforcementTest : public RoomScene {
  protected:
    EnforcementTest() { options.PartialOn = {}; }
    void Eject(const std::string& name) {
        if (control.EjectLists.Count() == 0) {
            control.EjectLists.Add(std::make_shared<EjectList>());
            control.EjectLists.Item(1)->ChatName = "Lob by";
            control.EjectLists.Item(1)->Exchange = 4;
            Room().EjectListIndex = 1;
        }
        control.EjectLists.Item(1)->AddEject(name);
    }
    void Immune(const std::string& name) { options.Immunes.Add(name, name); }
};

TEST_F(EnforcementTest, KickAndBanByName) {
    Immune("judge");
    EXPECT_EQ(Answers("Judge", "kick bob"), (Lines{"ban bob", "unban bob", Send(33, "bob", "0")}));
    EXPECT_EQ(Answers("Judge", "ban bob"), (Lines{"ban bob", Send(37, "bob", "1")}));
    EXPECT_EQ(Answers("Judge", "ban someone"), Lines()) << "who isn't here gets no answer";
    EXPECT_EQ(Answers("Judge", "kick bo"), Lines());
    EXPECT_EQ(Answers("Judge", "kick judge"), Lines{Send(36, "judge")});
    EXPECT_EQ(Answers("Judge", "ban judge"), Lines{Send(40, "judge")});
    EXPECT_EQ(Answers("Judge", "ban a,bob"), (Lines{Send(39), "ban bob", Send(37, "bob", "1")}));
    EXPECT_EQ(Answers("Judge", "kick " + std::string(101, 'k')), Lines{Send(35)});
    EXPECT_EQ(Answers("Judge", "ban " + std::string(101, 'k')), Lines()) << "no upper limit";
}

TEST_F(EnforcementTest, PartialActsOnEveryMatch) {
    options.PartialOn[2] = true;
    Immune("xray");
    for (const char* name : {"axe", "xray", "Max X"}) Joins(name);
    EXPECT_EQ(Answers("Judge", "ban X"), Lines{Send(39)}) << "one character";
    confirmBans = false;
    EXPECT_EQ(Answers("Judge", "ban ax"), (Lines{"ban axe", "ban maxx"}));
    EXPECT_EQ(Answers("Judge", "kick xr,ax"), (Lines{Send(36, "xray"), "ban axe", "ban maxx"}));
}

TEST_F(EnforcementTest, GbanNeedsNobodyHere) {
    Immune("holy");
    EXPECT_EQ(Answers("Judge", "gban absent,holy"),
              (Lines{"ban absent", Send(47, "holy"), Send(44, "absent", "1")}));
}

TEST_F(EnforcementTest, UnbanByName) {
    options.LockBans.Add("*bad");
    options.LockBans.Add("worse");
    EXPECT_EQ(Answers("Judge", "unban bob,al,bob"),
              (Lines{"unban bob", "unban al", Send(41, "bob"), Send(41, "al")}));
    EXPECT_EQ(Answers("Judge", "unban xBADx"), Lines{Send(115, "xbadx", "", "*bad")});
    EXPECT_EQ(Answers("Judge", "unban worse"), Lines{Send(115, "worse", "", "worse")});
    EXPECT_EQ(Answers("Judge", "unban worser").front(), "unban worser");
    EXPECT_EQ(Answers("Judge", "unban u"), Lines{Send(43)});
}

TEST_F(EnforcementTest, UnbanByPart) {
    options.PartialOn[3] = true;
    confirmBans = false;
    EXPECT_EQ(Answers("Judge", "unban bob"), Lines()) << "no eject list, nothing happens";
    for (const char* name : {"troll1", "troll2", "gremlin"}) Eject(name);
    EXPECT_EQ(Answers("Judge", "unban troll"), Lines{"unban troll1"});
    EXPECT_EQ(Answers("Judge", "unban troll,TROLL,troll"),
              (Lines{"unban troll1", "unban troll2", "unban troll"}))
        << "the next match each time, then the text itself";
    options.ChainOn[4] = true;
    options.LockBans.Add("*2");
    EXPECT_EQ(Answers("Judge", "unban troll,troll1,other"),
              (Lines{Send(115, "troll2", "", "*2"), "unban troll1", "unban other"}));
    Room().ChatName = "LOBBY";
    EXPECT_EQ(Answers("Judge", "unban troll"), Lines()) << "case counts in this look-up, on purpose";
}

TEST_F(EnforcementTest, Tban) {
    Immune("judge");
    const struct {
        const char* line;
        Lines answers;
    } cases[] = {
        {"tban", {Send(102)}},
        {"tban bob", {Send(102)}},
        {"tban b,5", {Send(102)}},
        {"tban bob,", {Send(103, "judge")}},
        {"tban bob,0.9", {Send(103, "judge")}},
        {"tban bob,1000", {Send(103, "judge")}},
        {"tban bob,1e308", {Send(103, "judge")}},
        {"tban bob,1e999", {Send(103, "judge")}},
        {"tban bob,-5", {Send(103, "judge")}},
        {"tban bo,5", {}},
        {"tban judge,5", {Send(104, "judge")}},
        {"tban bob,5.5,rest", {"ban bob", Send(100, "bob", "1", "6")}},
        {"tban bob,5", {Send(124, "bob")}},
    };
    for (const auto& each : cases) EXPECT_EQ(Answers("Judge", each.line), each.answers) << each.line;
    options.PartialOn[2] = true;
    EXPECT_EQ(Answers("Judge", "tban udg,5"), Lines{Send(40, "judge")})
        << "the ban command's line, on purpose";
    EXPECT_EQ(Answers("Judge", "tban ob,5"), Lines{Send(124, "bob")});
    EXPECT_EQ(Answers("Judge", "tban nobody,5"), Lines());
}

TEST_F(EnforcementTest, NothingIsAskedForWhileRated) {
    Room().RateNotice(3, 1);
    Answers("Judge", "help");
    EXPECT_EQ(Answers("Judge", "ban bob"), Lines());
    EXPECT_EQ(Answers("Judge", "unban bob"), Lines());
}

} // namespace

} // namespace halyard
