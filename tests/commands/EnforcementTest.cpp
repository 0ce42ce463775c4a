// kick, ban, gban, unban and tban.

#include "tests/commands/RoomScene.h"

namespace halyard {

struct EnforcementTest : RoomScene {
    EnforcementTest() { options.PartialOn = {}; }
};

TEST_F(EnforcementTest, KickAndBanByName) {
    Immune("judge");
    Judge(R"(kick bob -> ban bob | unban bob | 33 bob=0
             ban bob -> ban bob | 37 bob=1
             ban someone -> # who isn't here gets no answer
             kick bo ->
             kick judge -> 36 judge
             ban judge -> 40 judge
             ban a,bob -> 39 | ban bob | 37 bob=1)");
    Judge("kick " + std::string(101, 'k') + " -> 35");
    Judge("ban " + std::string(101, 'k') + " -> # no upper limit");
    Room().RateNotice(3, 1);
    Answers("Judge", "help");
    Judge("ban bob -> # nothing is asked for while rated; unban bob ->");
}

TEST_F(EnforcementTest, PartialActsOnEveryMatch) {
    options.PartialOn[2] = true;
    Immune("xray");
    for (const char* name : {"axe", "xray", "Max X"}) Joins(name);
    Judge("ban X -> 39 # one character");
    confirmBans = false;
    Judge("ban ax -> ban axe | ban maxx; kick xr,ax -> 36 xray | ban axe | ban maxx");
    Judge("gban absent,xray -> ban absent | 47 xray # needs nobody here");
}

TEST_F(EnforcementTest, UnbanByName) {
    options.LockBans.Add("*bad");
    options.LockBans.Add("worse");
    Judge(R"(unban bob,al,bob -> unban bob | unban al | 41 bob | 41 al
             unban xBADx -> 115 xbadx==*bad
             unban worse -> 115 worse==worse
             unban worser -> unban worser | 41 worser
             unban u -> 43
             gban absent -> ban absent | 44 absent=1)");
}

TEST_F(EnforcementTest, UnbanByPart) {
    options.PartialOn[3] = true;
    confirmBans = false;
    Judge("unban bob -> # no eject list, nothing happens");
    control.EjectLists.Add(std::make_shared<EjectList>());
    auto& list = *control.EjectLists.Item(1);
    list.ChatName = "Lob by";
    list.Exchange = 4;
    Room().EjectListIndex = 1;
    for (const char* name : {"troll1", "troll2", "gremlin"}) list.AddEject(name);
    Judge(R"(unban troll -> unban troll1
             unban troll,TROLL,troll -> unban troll1 | unban troll2 | unban troll # match, match, text)");
    options.ChainOn[4] = true;
    options.LockBans.Add("*2");
    Judge("unban troll,troll1,other -> 115 troll2==*2 | unban troll1 | unban other");
    Room().ChatName = "LOBBY";
    Judge("unban troll -> # case counts in this look-up, on purpose");
}

TEST_F(EnforcementTest, Tban) {
    Immune("judge");
    Judge(R"(tban -> 102; tban bob -> 102; tban b,5 -> 102; tban bo,5 ->
             tban bob, -> 103 judge; tban bob,0.9 -> 103 judge; tban bob,1000 -> 103 judge
             tban bob,1e308 -> 103 judge; tban bob,1e999 -> 103 judge; tban bob,-5 -> 103 judge
             tban judge,5 -> 104 judge
             tban bob,5.5,rest -> ban bob | 100 bob=1=6
             tban bob,5 -> 124 bob)");
    options.PartialOn[2] = true;
    Judge("tban udg,5 -> 40 judge # the ban command's line, on purpose; tban ob,5 -> 124 bob; tban nobody,5 "
          "->");
}

} // namespace halyard
