// Which lines are commands, and how a command line is taken apart.

#include "commands/CommandTable.h"
#include "commands/Targets.h"
#include "tests/commands/RoomScene.h"

namespace halyard {

namespace {

using CommandEntry = RoomScene;

TEST(ParseCommandTest, TheFirstCcomInIndexOrderWins) {
    CcomTable ccoms;
    EXPECT_EQ(ParseCommand(ccoms, "opal"), (ParsedCommand{CcomOp, "al"}));
    EXPECT_EQ(ParseCommand(ccoms, "unop"), (ParsedCommand{CcomUnop, ""}));
    EXPECT_EQ(ParseCommand(ccoms, "uinfobob"), (ParsedCommand{CcomUinfo, "bob"}));
    EXPECT_EQ(ParseCommand(ccoms, "helpme"), (ParsedCommand{ParsedCommand::Help, ""}));
    EXPECT_EQ(ParseCommand(ccoms, "hel"), ParsedCommand());
    EXPECT_EQ(ParseCommand(ccoms, ""), ParsedCommand());
    ccoms.CcomNames[CcomBan] = "o";
    EXPECT_EQ(ParseCommand(ccoms, "opal"), (ParsedCommand{CcomOp, "al"})) << "index 0 comes before 9";
    ccoms.CcomNames[CcomIcq] = "help";
    EXPECT_EQ(ParseCommand(ccoms, "helpon"), (ParsedCommand{CcomIcq, "on"}));
}

TEST(TargetsTest, TheFirstAsteriskStays) {
    EXPECT_EQ(KeepFirstAsterisk("a*b*c*"), "a*bc");
    EXPECT_EQ(KeepFirstAsterisk("****"), "*");
    EXPECT_EQ(KeepFirstAsterisk("plain"), "plain");
}

struct LineCase {
    const char* trigger;
    bool comments;
    const char* line;
    Lines answers;
};

TEST_F(CommandEntry, TriggerEndsACommandAndComments) {
    options.WordBanOn = true;
    options.Autowords.Add("spam");
    options.PartialOn = {};
    Joins("bob!");
    Joins("bob/rude");
    auto banned = [this](const char* name, int bans) {
        return Lines{std::string("ban ") + name, Send(37, name, std::to_string(bans))};
    };
    const LineCase cases[] = {
        {"!", true, "Ban Bob! he spammed", {"ban bob", Send(37, "bob", "1"), "ban judge"}},
        {"!", true, "ban bob spam", {}},
        {"!", false, "ban bob!", banned("bob!", 3)},
        {"!", false, "ban bob! he left", {}},
        {"!!", false, "ban bob!!", {}},
        {"!!", true, "ban bob!! rude", banned("bob", 3)},
        {"X", true, "ban bobx", banned("bob", 3)},
        {"X", false, "ban bobX", {}},
        {"", true, "ban bob/was rude", banned("bob", 3)},
        {"", true, "/ban bob", {}},
        {"", false, "ban bob/rude", banned("bob/rude", 4)},
        {"", false, "<b>B</b> a N <i>bob</i>", banned("bob", 4)},
    };
    for (const auto& each : cases) {
        options.Ccoms.strTrigger = each.trigger;
        options.Ccoms.blnCcomComments = each.comments;
        auto answers = Answers("Judge", each.line);
        if (answers.size() > 2) answers.resize(3);
        EXPECT_EQ(answers, each.answers) << each.trigger << " " << each.line;
    }
}

TEST_F(CommandEntry, OnlyOpsCommandAndOnlyCommandsCount) {
    auto before = TotalCommands();
    EXPECT_EQ(Answers("Bob", "status"), Lines());
    EXPECT_EQ(Answers("Judge", "hello everybody"), Lines());
    EXPECT_EQ(Answers("Judge", "/status"), Lines());
    EXPECT_EQ(TotalCommands(), before);
    EXPECT_EQ(Answers("Judge", "help").size(), 1U);
    EXPECT_EQ(Answers("Judge", "ban"), Lines{Send(39)});
    EXPECT_EQ(TotalCommands(), before + 2);
    options.WordBanAll = true;
    EXPECT_EQ(Answers("Bob", "status").front(), "ban bob") << "what is no command is still looked at";
}

TEST_F(CommandEntry, PermissionDigits) {
    options.Perms.Clear();
    EXPECT_EQ(Answers("Judge", "op al"), Lines{Send(3, "judge")});
    EXPECT_EQ(Answers("Judge", "unban al"), Lines{Send(38, "judge")}) << "the ban command's line, on purpose";
    EXPECT_EQ(Answers("Judge", "tban al,5"), Lines{Send(101, "judge")});
    options.SetPerms("judge", DefaultPerms);
    EXPECT_EQ(Answers("Judge", "op al"), Lines{Send(3, "judge")});
    EXPECT_EQ(Answers("Judge", "gban al").front(), "ban al");
    std::string older =
        "1" + std::string(FullPerms); // of 29 digits: digit 11 is the 12th, digit 1 is the first
    older[11] = '0';
    options.SetPerms("judge", older);
    EXPECT_EQ(Answers("Judge", "unban al"), Lines{Send(38, "judge")});
    EXPECT_EQ(Answers("Judge", "gban al").size(), 2U);
    EXPECT_EQ(Answers("Judge", "op al"), Lines{Send(1, "al")});
}

TEST_F(CommandEntry, NothingCountsDuringTheFirstJoin) {
    auto slot = OpenRoom("Cellar", false);
    options.WordBanAll = true;
    transcript.clear();
    Says("Judge", "status", 2);
    engine.ChatMessage(99, "Judge", "status"); // a room that is gone
    EXPECT_EQ(Taken(), Lines());
    EXPECT_EQ(told, (Lines{"Judge: status", "Judge: status"})) << "consoles hear it all the same";
    engine.ChatMessage(slot, "Judge", "help");
    EXPECT_FALSE(Taken().empty());
}

TEST_F(CommandEntry, Ghosts) {
    EXPECT_EQ(Answers("OnlineHost", "al rolled 2 dice"), Lines()) << "nothing while ghost bans are off";
    options.AutobanGhosts = true;
    MakeOp("ghostop");
    options.Immunes.Add("holy", "holy");
    options.WordBanOn = true;
    options.Autowords.Add("dice");
    EXPECT_EQ(Answers("Bob", "hello"), Lines());
    EXPECT_EQ(Answers("Casper", "hello"), Lines{"ban casper"}) << "success says nothing, on purpose";
    EXPECT_EQ(Answers("OnlineHost", "has entered"), Lines());
    EXPECT_EQ(Answers("OnlineHost", "Holy Rolled 2 dice"), Lines());
    EXPECT_EQ(Answers("OnlineHost", "<b>Al Bo</b> ROLLED 2 dice"),
              (Lines{"ban albo", "ban albo", Send(106, "albo", "2", "dice")}))
        << "and then the word ban, for the person named";
    EXPECT_EQ(Answers("Holy", "hello"), Lines{"ban holy"})
        << "a direct ghost's immunity isn't asked, on purpose";
    EXPECT_EQ(Answers("GhostOp", "help").size(), 2U) << "banned, and heard";
}

TEST_F(CommandEntry, PartialAndChain) {
    for (const char* name : {"alice", "malik", "zed"}) Joins(name);
    EXPECT_EQ(Answers("Judge", "imm ali,zed,nobody"), (Lines{Send(9, "alice"), Send(9, "zed, nobody")}));
    options.ChainOn[3] = true;
    options.Immunes.Remove("zed");
    EXPECT_EQ(Answers("Judge", "unimm xx,ali,zed"),
              (Lines{Send(14, "xx"), Send(10, "alice"), Send(14, "malik")}))
        << "the rest is dropped without a word";
    Says("Judge", "unimm nobody");
    EXPECT_EQ(Taken().back(), Send(10, "nobody"));
    options.ChainOn[2] = true;
    options.PartialOn[1] = false;
    options.Immunes.Add("alice", "alice");
    EXPECT_EQ(Answers("Judge", "imm ali"), (Lines{Send(13, "alice"), Send(9, "malik")})) << "chain alone";
}

TEST_F(CommandEntry, InternalCommands) {
    engine.InternalCommand("  ");
    EXPECT_TRUE(bot.dialogs.shown.empty());
    engine.InternalCommand("no colon");
    engine.InternalCommand("cellar: help");
    ASSERT_EQ(bot.dialogs.shown.size(), 2U);
    EXPECT_EQ(bot.dialogs.shown[0].text,
              "Error validating command. Please enter a command in the following format: chat:command");
    EXPECT_EQ(bot.dialogs.shown[1].text, "Error: Chat given was not found!");
    options.AutobanGhosts = true;
    engine.InternalCommand(" LOB by: op al ");
    EXPECT_EQ(Taken(), (Lines{"ban [manualcommand]", Send(1, "al")}));
    options.Ccoms.strTrigger = "!";
    options.AutobanGhosts = false;
    engine.InternalCommand("lobby:op al");
    EXPECT_EQ(Taken(), Lines()) << "the trigger rule holds for it too";
}

} // namespace

} // namespace halyard
