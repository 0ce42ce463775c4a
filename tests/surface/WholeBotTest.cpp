// The bot as an operator and the people of a room meet it, from signing on to signing off.

#include "tests/surface/DeskScene.h"

namespace halyard {

using WholeBot = DeskScene;

TEST_F(WholeBot, SignsOnJoinsAndBansForAnOp) {
    people.Enter("lobby", "opal");
    people.Enter("lobby", "bob");
    MakeOp("opal");
    EXPECT_EQ(window.connection.lblConnectionInfo.Caption(), "Idle...");
    SignOn();
    EXPECT_EQ(window.connection.lblConnectionInfo.Caption(), "Online!");
    EXPECT_FALSE(window.connection.cmdSignOn.Enabled());
    EXPECT_EQ(machine.desktop.trayTip, "Halyard 2.0 (Beta 1.0) [User: Harbour Bot]");
    Start();
    Join("lobby");
    EXPECT_EQ(Transcript(), (Lines{"0 Harbour Bot creates the room", "0 Harbour Bot enters",
                                   "0 Harbour Bot says « Halyard Control Desk Joined: Halyard under way »"}));
    EXPECT_EQ(window.chats.lblChatCount.Caption(), "Chats you are in: 1");
    EXPECT_EQ(window.counters.lstActions.List(1), "Joined chat 'lobby', Exchange '4', Instance '0");

    Start();
    people.Say("lobby", "opal", "ban bob");
    Wait(9);
    people.Enter("lobby", "bob");
    window.ejects.lstEjectListChats.Select(0);
    EXPECT_EQ(Listed(window.ejects.lstEjected), Lines{"bob"});
    EXPECT_EQ(window.ejects.lblBanCount.Caption(), "Bans: 1");
    window.ejects.lstEjected.Select(0);
    window.menus.mnuUnbanUser.Click();
    Wait(20);
    EXPECT_EQ(Transcript(),
              (Lines{"0 opal says ban bob", "0 Harbour Bot bans bob", "0 bob leaves",
                     "0 Harbour Bot says « Banned: bob, Bans: 1 »", "9 bob cannot come in: kept out",
                     "9 Harbour Bot unbans bob", "9 Harbour Bot says « Unbanned: bob »"}));
    EXPECT_EQ(LastAction(), "Unbanned user in chat 'lobby': bob");
    EXPECT_EQ(Listed(window.ejects.lstEjected), Lines{});
    EXPECT_EQ(window.counters.lblStat[12].Caption(), "1");
}

TEST_F(WholeBot, TakesCommandsOfTheOperatorAndByMessage) {
    people.Enter("lobby", "rowdy");
    people.BringOnLine("opal");
    MakeOp("opal");
    window.imComsWindow.Show();
    window.imComsWindow.cmdIMComs.Click();
    SignOn();
    Join("lobby");
    Wait(10);
    Start();
    Type(window.other.txtInternalCommand, "Lobby:imm rowdy");
    Wait(9);
    people.Message("opal", "Harbour Bot", "1:ban rowdy");
    Wait(20);
    EXPECT_EQ(Transcript(), (Lines{"0 Harbour Bot says « Imm Added: rowdy »",
                                   "9 Harbour Bot says « Immune to ban: rowdy »"}));
    EXPECT_EQ(Listed(boxes.lstImms), Lines{"rowdy"});
    EXPECT_EQ(window.imComsWindow.txtIMs.Text(), "opal: 1:ban rowdy\r\n");
    window.imComsWindow.cmdClear.Press();
    EXPECT_EQ(window.imComsWindow.txtIMs.Text(), "");
    EXPECT_EQ(window.other.txtInternalCommand.Text(), "");
    Type(window.other.txtInternalCommand, "nowhere:status");
    EXPECT_EQ(Boxes(), Lines{"Error: Error: Chat given was not found!"});
}

TEST_F(WholeBot, SavesAndLoadsInARoomWithoutAWordAndAsksWhichFiles) {
    MakeOp("opal");
    window.Engine().Lists().AddAB("spam*", 0);
    SignOn();
    Join("lobby");
    Wait(10);
    Start();
    for (auto* entry : {&window.menus.mnuSaveSettings, &window.menus.mnuLoadSettings}) {
        machine.dialogs.AnswerText("/program/mine.hys");
        entry->Click();
    }
    Wait(60);
    EXPECT_EQ(Transcript(), Lines{});
    EXPECT_EQ(Listed(boxes.lstABs), Lines{"spam*"});
    Join("deck");
    boxes.lstOps.Select(0);
    boxes.lstOps.KeyDown(DeleteKey);
    Wait(9);
    EXPECT_EQ(Happened("Op Removed").size(), 2U) << "in every room";
    machine.dialogs.AnswerText("/program/list.txt");
    window.ejects.cmdSaveEjects.Press();
    EXPECT_EQ(machine.disk.Contents("/program/list.txt"), "Halyard File: Eject Lists\r\n\r\n");
    for (int dialog = 0; dialog < 2; ++dialog) machine.dialogs.AnswerCancel();
    window.ejects.cmdLoadEjects.Press();
    window.menus.mnuLoadGannetSettings.Click();
    Lines asked;
    for (const auto& box : machine.dialogs.shown)
        asked.push_back(box.title + "|" + box.text + "|" + box.folder);
    EXPECT_EQ(asked, (Lines{"Load settings|Halyard Settings File (*.HYS)|*.HYS||/program",
                            "Load settings|Halyard Settings File (*.HYS)|*.HYS||/program",
                            "Save Eject Lists|Halyard Eject Lists (*.txt)|*.txt||/program",
                            "Load Eject List|Halyard Eject Lists (*.txt)|*.txt||/program",
                            "Load settings|Gannet Elite Settings File [All files] (*.*)|*.*|/program"}));
}

} // namespace halyard
