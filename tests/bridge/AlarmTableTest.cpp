// The table [alarms] of bridge.toml: what it says, what is wrong with it, and that it reads back as written.

#include "bridge/networks/BridgeFile.h"
#include "platform/sim/SimFiles.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

constexpr const char* AlarmFile = "/config/bridge.toml";
constexpr const char* AlarmHead = "[networks.Den]\n";

class AlarmTable : public testing::Test {
  protected:
    AlarmTable() {
        disk.Put(AlarmFile, AlarmHead);
        file.Load();
    }
    SimFiles disk;
    BridgeFile file{disk};
};

TEST_F(AlarmTable, ReadsBackAsWritten) {
    EXPECT_EQ(file.Alarms(), AlarmTerms());
    AlarmTerms terms;
    terms.tray = false;
    terms.daily = true;
    terms.command = {"/usr/bin/ring me", "", "say \"\\\x80"};
    terms.messages = {"nightowl", "roomboss"};
    terms.Of(AlarmKind::Silent).on = false;
    terms.Of(AlarmKind::Raid) = {true, 0, 10'080, 0};
    ASSERT_TRUE(file.SetAlarms(terms));
    const auto text = disk.Contents(AlarmFile);
    EXPECT_NE(text.find("[alarms.raid]\non = true\nlimit = 0\nminutes = 10080\nrest = 0\n"), text.npos)
        << text;
    EXPECT_EQ(text.find("[alarms.fuse]"), text.npos);
    BridgeFile again(disk);
    again.Load();
    EXPECT_TRUE(again.Problems().empty());
    EXPECT_EQ(again.Alarms(), terms);

    auto wrong = terms;
    wrong.command = {" ", "b"};
    EXPECT_FALSE(file.SetAlarms(wrong));
    wrong = terms, wrong.command.push_back("a\nb");
    EXPECT_FALSE(file.SetAlarms(wrong));
    wrong = terms, wrong.messages.assign(11, "bob");
    EXPECT_FALSE(file.SetAlarms(wrong));
    wrong = terms, wrong.Of(AlarmKind::OffLine).minutes = 0;
    EXPECT_FALSE(file.SetAlarms(wrong));
    EXPECT_EQ(file.Alarms(), terms);
    EXPECT_EQ(disk.Contents(AlarmFile), text);
}

TEST_F(AlarmTable, TellsEveryMistake) {
    ASSERT_TRUE(file.Choose("Den", "", ""));
    const auto head = disk.Contents(AlarmFile);
    disk.Put(AlarmFile, head + "[alarms]\n"
                               "tray = 1\n"
                               "command = [\"\", \"x\"]\n"
                               "messages = [\"\", \" \", 5, \"Night Owl\"]\n"
                               "off-line = 5\n"
                               "[alarms.raid]\n"
                               "limit = 10001\n"
                               "minutes = 0\n"
                               "rest = -1\n"
                               "[alarms.given-up]\n"
                               "minutes = 5\n"
                               "rest = 7\n"
                               "[alarms.thunder]\n");
    BridgeFile again(disk);
    again.Load();
    std::string told;
    for (const auto& problem : again.Problems()) told += problem.substr(problem.find(": ") + 2) + "\n";
    EXPECT_EQ(told, "alarms.tray must be true or false\n"
                    "alarms.command must begin with a program\n"
                    "alarms.messages must hold names\n"
                    "alarms.messages must have from 1 to 255 characters, none of them a control character\n"
                    "alarms.messages must be a text in quotes\n"
                    "alarms.off-line must be a table\n"
                    "alarms.raid.limit must be from 0 to 10000\n"
                    "alarms.raid.minutes must be from 1 to 10080\n"
                    "alarms.raid.rest must be from 0 to 10080\n"
                    "alarms.given-up.minutes is no key that is known here\n"
                    "alarms.thunder is no key that is known here\n");
    AlarmTerms right;
    right.messages = {"nightowl"};
    right.Of(AlarmKind::GivenUp).rest = 7;
    EXPECT_EQ(again.Alarms(), right);
    EXPECT_FALSE(again.SetAlarms({})) << "nobody writes over a mistake";
}

} // namespace
} // namespace halyard
