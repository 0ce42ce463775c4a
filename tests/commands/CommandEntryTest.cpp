// Which lines are commands, and how a command line is taken apart.

#include "commands/CommandTable.h"
#include "tests/commands/RoomScene.h"

namespace halyard {

using CommandEntry = RoomScene;

TEST(ParseCommandTest, TheFirstCcomInIndexOrderWins) {
    CcomTable ccoms;
    for (int none : {-1, static_cast<int>(CcomCount)}) EXPECT_EQ(ccoms.GetCcom(none), "");
    for (const char* line : {"hel", ""}) EXPECT_EQ(ParseCommand(ccoms, line), ParsedCommand());
    ccoms.CcomNames[CcomBan] = "o";
    EXPECT_EQ(ParseCommand(ccoms, "opal"), (ParsedCommand{CcomOp, "al"})) << "index 0 comes before 9";
    ccoms.CcomNames[CcomIcq] = "help";
    EXPECT_EQ(ParseCommand(ccoms, "helpon"), (ParsedCommand{CcomIcq, "on"}));
}

TEST_F(CommandEntry, TriggerEndsACommandAndComments) {
    options.WordBanOn = true;
    options.Autowords.Add("spam");
    options.PartialOn = {};
    Joins("bob!");
    Joins("bob/rude");
    auto with = [this](const char* trigger, bool comments, const char* script) {
        options.Ccoms.strTrigger = trigger;
        options.Ccoms.blnCcomComments = comments;
        Judge(script);
    };
    with("!", true,
         "Ban Bob! he spammed -> ban bob | 37 bob=1 | ban judge | 106 judge=2=spam; ban bob spam ->");
    with("!", false, "ban bob! -> ban bob! | 37 bob!=3; ban bob! he left ->");
    with("!!", false, "ban bob!! ->");
    with("!!", true, "ban bob!! rude -> ban bob | 37 bob=3");
    with("X", true, "ban bobx -> ban bob | 37 bob=3");
    with("X", false, "ban bobX ->");
    with("", true, "ban bob/was rude -> ban bob | 37 bob=3; /ban bob ->");
    with("", false,
         "ban bob/rude -> ban bob/rude | 37 bob/rude=4; <b>B</b> a N <i>bob</i> -> ban bob | 37 bob=4");
}

TEST_F(CommandEntry, OnlyOpsCommandAndOnlyCommandsCount) {
    Play("Bob", "status ->");
    Judge("hello everybody ->; /status ->; ban -> 39");
    EXPECT_EQ(counters.Kept(10), 1) << "commands given";
    engine.ChatMessage(99, "Judge", "status"); // in a room that is gone
    EXPECT_EQ(Taken(), Lines());
    EXPECT_EQ(told.back(), "Judge: status") << "consoles hear it all the same";
    options.WordBanAll = true;
    EXPECT_EQ(Answers("Bob", "status").front(), "ban bob") << "what is no command is still looked at";
}

TEST_F(CommandEntry, PermissionDigits) {
    options.Perms.Clear();
    Judge(R"(op al -> 3 judge; unop al -> 4 judge; imm al -> 11 judge; unimm al -> 12 judge
             ab al -> 19 judge; unab al -> 20 judge; aw al -> 27 judge; unaw al -> 28 judge
             kick al -> 34 judge; ban al -> 38 judge; gban al -> 45 judge; status -> 49 judge
             unban al -> 38 judge # the ban command's line, on purpose
             info al -> 51 judge; bl 1 -> 54 judge; rejoin -> 56 judge; bp 2 -> 58 judge
             lop al -> 62 judge; uop al -> 63 judge; limm al -> 72 judge; uimm al -> 73 judge
             lban al -> 82 judge; uban al -> 83 judge; cb on -> 89 judge; sc 5 -> 92 judge
             icq on -> 95 judge; uinfo al -> 98 judge; tban al,5 -> 101 judge)");
    options.SetPerms("judge", DefaultPerms);
    Judge("op al -> 3 judge; gban al -> ban al | 44 al=1");
    std::string older = "1" + std::string(FullPerms); // of 29 digits: the 12th is digit 11, the first digit 1
    older[11] = '0';
    options.SetPerms("judge", older);
    Judge("unban al -> 38 judge; gban al -> ban al | 44 al=1; op al -> 1 al");
}

TEST_F(CommandEntry, Ghosts) {
    Play("OnlineHost", "al rolled 2 dice -> # nothing while ghost bans are off");
    options.AutobanGhosts = true;
    MakeOp("ghostop");
    Immune("holy");
    options.WordBanOn = true;
    options.Autowords.Add("dice");
    Play("Bob", "hello ->");
    Play("Casper", "hello -> ban casper # success says nothing, on purpose");
    Play("OnlineHost", R"(has entered with dice ->
                          Holy Rolled 2 dice ->
                          <b>Al Bo</b> ROLLED 2 dice -> ban albo | ban albo | 106 albo=2=dice # by word)");
    Play("Holy", "hello -> ban holy # a direct ghost's immunity isn't asked, on purpose");
    EXPECT_EQ(Answers("GhostOp", "help").size(), 2U) << "banned, and heard";
}

TEST_F(CommandEntry, PartialAndChain) {
    for (const char* name : {"alice", "malik", "zed"}) Joins(name);
    Judge("imm ali,zed,nobody -> 9 alice | 9 zed, nobody");
    options.ChainOn[3] = true;
    options.Immunes.Remove("zed");
    Judge("unimm xx,ali,zed -> 14 xx | 10 alice | 14 malik # the rest is dropped without a word");
    Judge("unimm nobody -> 10 nobody");
    options.ChainOn[2] = true;
    options.PartialOn[1] = false;
    Immune("alice");
    Judge("imm ali -> 13 alice | 9 malik # chain alone");
}

TEST_F(CommandEntry, InternalCommands) {
    engine.InternalCommand("  ");
    EXPECT_TRUE(bot.dialogs.shown.empty());
    options.AutobanGhosts = true;
    engine.InternalCommand(" LOB by: op al ");
    EXPECT_EQ(Taken(), (Lines{"ban [manualcommand]", Send(1, "al")}));
    options.Ccoms.strTrigger = "!";
    options.AutobanGhosts = false;
    engine.InternalCommand("lobby:op al");
    EXPECT_EQ(Taken(), Lines()) << "the trigger rule holds for it too";
}

} // namespace halyard
