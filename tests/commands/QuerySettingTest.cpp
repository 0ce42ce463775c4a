// status, info, uinfo, help, and the commands that change a setting.

#include "tests/commands/RoomScene.h"

namespace halyard {

using QuerySettingTest = RoomScene;

TEST_F(QuerySettingTest, Status) {
    options.Autobans.Add("x*");
    options.WordBanOn = true;
    const std::string counts = "48  --- Ops: 1, Imms: 0, ABs: 1, AWs: 0, Lock Op: 0, Lock Imm: 0, "
                               "Lock Ban: 0, AB Level: 0, AW On: True, Chat Count: 1, Bans: ";
    Judge("status please -> " + counts + "[Not Found], Rated: False; ban bob -> ban bob | 37 bob=1");
    Room().RateNotice(2, 1);
    Taken();
    Judge("status -> " + counts + "1, Rated: True");
}

TEST_F(QuerySettingTest, Info) {
    Judge("info x -> 52; info stranger -> 50 stranger=[None]; info jud -> 50 judge=Here, Oped");
    Answers("Judge", "gban a,b.c");
    options.Autobans.Add("b*");
    options.Autowords.Add("b.c");
    for (auto* list : {&options.Ops, &options.Immunes, &options.LockOps, &options.LockImms}) list->Add("b.c");
    options.LockBans.Add("b.c");
    Judge("info b.c -> 50 b . c=Banned, Oped, Imm, AWed, Lock Oped, Lock Immed, Lock Banned");
    options.Autobans.Add("a,b.c");
    Judge("info a,b.c -> 50 a,b . c=ABed # the whole rest is one name");
}

TEST_F(QuerySettingTest, OneUserInfoAtATime) {
    Judge("uinfo b -> 99; uinfo " + std::string(101, 'b') + " -> 99");
    told.clear();
    Judge("uinfo bob ->; uinfo al ->");
    EXPECT_EQ(control.strUserInfo, "bob");
    engine.IncomingUserInfo("Bob", 10, 95, "1040");
    EXPECT_EQ(Taken(),
              Lines{Send(97, "Bob",
                         "Warning Level: 10%, Online Time (mins): 95, User Class #: 1040, User Class Type: "
                         "Oscar Internet Bot")});
    EXPECT_EQ(told, (Lines{"Judge: uinfo bob", "timer on", "Judge: uinfo al", "timer off"}));
    EXPECT_FALSE(control.GettingUserInfo);
    EXPECT_EQ(control.strUserInfo, "");
    const std::pair<std::string, std::string> types[] = {
        {"36", "AOL"}, {"656", "Mobile Internet"}, {"9220", "AOL Bot"}, {"04", "Unknown"}, {"", "Unknown"}};
    for (const auto& [userClass, type] : types) {
        engine.IncomingUserInfo("x", 0, 0, userClass);
        EXPECT_TRUE(Taken().front().ends_with("User Class Type: " + type + " »")) << userClass;
    }
}

TEST_F(QuerySettingTest, HelpListsWhatIsAllowed) {
    options.SetPerms("judge", DefaultPerms);
    Judge("help me -> Commands: ab, unab, kick, ban, unban, gban, status, info, uinfo, tban");
    Room().RateNotice(2, 1);
    Taken();
    Judge("help -> Commands: ab, unab, <s>kick</s>, <s>ban</s>, <s>unban</s>, <s>gban</s>, status, info, "
          "uinfo, <s>tban</s>");
    options.SetPerms("judge", "");
    Judge("help -> 121 judge");
}

TEST_F(QuerySettingTest, WordsAndBounds) {
    Judge(R"(bl -> 55; bl 5 ->; bl SELECTED -> 53 selected; bl 2 -> 53 all; bl none -> 53 none
             bp -> 59; bp 0 -> 59; bp 1000 -> 59; bp .001 -> 57 .001; bp 1e400 -> 59; bp 2.5s -> 57 2.5s
             bp x -> 59; cb maybe -> 90; cb -> 90; cb + -> 88 on; cb 0 -> 88 off; cb on -> 88 on
             sc -> 93; sc 0.9 -> 93; sc 101 -> 93; sc 12 -> 91 12; sc 99999999999 -> 93
             icq 2 -> 96; icq - -> 94 off; icq 1 -> 94 on)");
}

TEST_F(QuerySettingTest, WhatTheSettingsChange) {
    OpenRoom("Cellar");
    auto& boxes = options.Controls;
    for (const char* line : {"bl 1", "bp 7", "sc 8.5", "cb on"}) Says("Judge", line);
    EXPECT_TRUE(options.AutobanLevel == 1 && boxes.optAB.Index() == 1);
    EXPECT_EQ(control.sngBanPause, 7);
    EXPECT_EQ(boxes.txtBP.Text(), "7");
    EXPECT_EQ(Room(1).tmrBan->Interval(), 7000);
    EXPECT_EQ(Room(2).tmrBan->Interval(), 1000) << "other rooms keep their pause";
    EXPECT_EQ(options.CharBanNum, 8);
    EXPECT_EQ(boxes.txtCharBan.Text(), "8.5");
    EXPECT_TRUE(options.CharBanOn && boxes.txtCharBan.Enabled());
    Says("Judge", "cb off");
    EXPECT_FALSE(options.CharBanOn || boxes.txtCharBan.Enabled() || boxes.chkCharBan.Value());

    Says("Judge", "icq on");
    EXPECT_TRUE(options.CharBanOn && options.BanAllICQs) << "the char ban's flag too, on purpose";
    EXPECT_EQ(boxes.chkCharBan.Value(), 0);
    options.BanAllICQs = false;
    Says("Judge", "icq on");
    EXPECT_FALSE(options.BanAllICQs) << "a box that was checked already runs no handler";
    Says("Judge", "icq off");
    EXPECT_EQ(boxes.chkBanICQs.Value(), 0);

    Taken();
    Judge("rejoin now -> left Lobby manual");
    EXPECT_EQ(control.Chat.Count(), 1U);
}

} // namespace halyard
