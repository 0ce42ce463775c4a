// The buttons of the panels: what they ask for first, and what they show.

#include "tests/surface/DeskScene.h"

namespace halyard {

using Panels = DeskScene;

TEST_F(Panels, SigningOnAsksForWhatIsMissingInOrder) {
    for (auto* box : {&boxes.txtPW, &boxes.txtPort}) box->SetText("");
    boxes.cmbServer.SetText("");
    const auto press = [this] {
        window.connection.cmdSignOn.Press();
        return Boxes();
    };
    const std::tuple<TextBox*, const char*, const char*> steps[] = {
        {&boxes.txtSN, "  ", "Please enter in a screenname to sign on!"},
        {&boxes.txtSN, " x ", "Screennames must be two or more characters!"},
        {&boxes.txtSN, "bot", "Please enter in a password for that screenname!"},
        {&boxes.txtPW, "  ", "Please enter in a valid port number!"}, // a password of blanks passes
        {&boxes.txtPort, " ", "Please enter in a valid port number!"},
        {&boxes.txtPort, "5190", "Please enter in valid Auth Server to connect to!"}};
    for (const auto& [box, typed, asked] : steps) {
        box->SetText(typed);
        EXPECT_EQ(press(), Lines{std::string("Note: ") + asked});
    }
    boxes.cmbServer.SetText(" 127.0.0.1 ");
    EXPECT_EQ(press(), Lines{});
    Wait(2);
    window.connection.cmdSignOn.SetEnabled(true);
    EXPECT_EQ(press(), Lines{"Note: You are already online!"});
}

TEST_F(Panels, JoiningAndLeavingAskForWhatIsMissing) {
    boxes.txtEx.SetText("");
    for (auto* button : {&window.chats.cmdJoinChat, &window.chats.cmdLeaveChat}) button->Press();
    EXPECT_EQ(Boxes(), (Lines{"Note: Please sign on first!", "Note: Please sign on first!"}));
    SignOn();
    for (const auto* name : {" ", "lobby"}) {
        boxes.txtChat.SetText(name);
        for (auto* button : {&window.chats.cmdJoinChat, &window.chats.cmdLeaveChat}) button->Press();
    }
    EXPECT_EQ(
        Boxes(),
        (Lines{"Note: Please enter in a chat name to join!", "Note: Please enter in a chat name to leave!",
               "Note: Please enter in an Exchange to join! Most common exchange numbers are 4 for "
               "private chats and 5 for public chats.",
               "Note: Please enter the chats correct Exchange number so it can leave!"}));
}

TEST_F(Panels, ARoomIsShownLeftAndClosed) {
    people.SetMaxPeople("Sea Room", 50);
    people.Enter("Sea Room", "opal");
    SignOn();
    Join("Sea Room");
    boxes.txtChat.SetText("");
    window.chats.lstChats.Select(0);
    EXPECT_EQ(boxes.txtChat.Text(), "Sea Room");
    window.chats.AddRoom("sea room"); // of a service that repeats itself
    EXPECT_EQ(window.chats.lstChats.ListCount(), 1);
    EXPECT_EQ(window.chats.FrameMisc[3].Caption(), "Chat Data: Sea Room");
    Lines rows;
    for (int row : {1, 2, 4, 5, 6, 8, 9})
        rows.push_back(window.chats.lblChatData[static_cast<std::size_t>(row)].Caption());
    EXPECT_EQ(rows, (Lines{"4", "0", "2", "[You]", "[None]", "48 + 2", "2"}));
    control.BanUser("opal", BanKind::Ban, control.Chat.Item(1)->ChatIndex);
    Wait(5);
    window.chats.lstChats.Select(-1);
    window.chats.lstChats.Select(0);
    EXPECT_EQ(window.chats.lblChatData[6].Caption(), "1");

    boxes.txtChat.SetText("SEAROOM");
    boxes.txtEx.SetText("5");
    window.chats.cmdCloseChat.Press();
    EXPECT_EQ(Boxes(), Lines{"Error: You are not in chat 'SEAROOM', Exchange '5'!"});
    boxes.txtEx.SetText("4 ");
    machine.dialogs.AnswerNo();
    window.chats.cmdCloseChat.Press();
    EXPECT_EQ(Boxes(),
              Lines{"Close Chat?: Do you want to close chat 'SEAROOM', Exchange '4 ', Instance '0'?"});
    window.chats.cmdLeaveChat.Press();
    EXPECT_EQ(window.chats.lblChatStatus.Caption(), "Left chat 'SEAROOM' in Exchange '4 ' Instance '0'!");
    EXPECT_EQ(window.chats.lblChatCount.Caption(), "Chats you are in: 0");
    Join("Sea Room");
    machine.dialogs.AnswerYes();
    window.chats.cmdCloseChat.Press(); // an owned one: the service is asked
    Wait(2);
    EXPECT_EQ(window.counters.lblStat[20].Caption(), "1");
    EXPECT_TRUE(network.People("Sea Room").empty());
    Join("deck");
    window.connection.cmdSignOff.Press();
    EXPECT_EQ(window.connection.lblConnectionInfo.Caption(), "Offline");
    EXPECT_EQ(Listed(window.chats.lstChats), Lines{});
    EXPECT_EQ(machine.desktop.trayTip, "Halyard 2.0 (Beta 1.0) [User: None]");
}

TEST_F(Panels, UserAndBanPause) {
    SignOn();
    Join("lobby");
    int profiles = 0;
    network.onEvent = [&](const PracticeEvent& event) { profiles += event.what == "sets a profile"; };
    boxes.txtCurrentUser.SetText(" <b>Ann</b> ");
    window.other.cmdSetUser.Press();
    EXPECT_EQ(window.options.strCurrentUser, "Ann");
    Wait(1);
    EXPECT_EQ(profiles, 1);
    Wait(31);
    EXPECT_EQ(profiles, 2) << "and with every save of the statistics";
    boxes.txtCurrentUser.SetText("  ");
    window.other.cmdSetUser.Press();
    EXPECT_EQ(boxes.txtCurrentUser.Text(), "Ann");
    EXPECT_EQ(Boxes(), Lines{"Note: You cannot have a blank user!"});

    for (const auto& [typed, shown, pause] :
         {std::tuple{"999", "999", 999.F},
          {"2.5", "2.5", 2.5F},
          {"0", "2.5", 2.5F},
          {"1000", "2.5", 2.5F},
          {"x", "2.5", 2.5F},
          {".0001", ".0001", .0001F}}) { // accepted, whatever the message says
        boxes.txtBP.SetText(typed);
        window.other.cmdSetBP.Press();
        EXPECT_EQ(boxes.txtBP.Text(), shown);
        EXPECT_EQ(control.sngBanPause, pause);
    }
    EXPECT_EQ(Boxes(), Lines(3, "Note: Ban pause values must be from .001 to 999!"));
    network.onEvent = nullptr;
}

TEST_F(Panels, OpsAndTheirPermissions) {
    Type(window.people.txtAddOp, "x");
    Type(window.people.txtAddImm, std::string(101, 'x'));
    Type(window.people.txtAddOp, "   ");
    EXPECT_EQ(Boxes(), Lines(2, "Note: Screenname lengths can only be between two characters to 100!"));
    Type(window.autobans.txtAddAB, "x");
    EXPECT_EQ(Boxes(), Lines{"Note: Autoban lengths can only be between two characters to 100!"});
    EXPECT_EQ(boxes.lstOps.ListCount(), 0);
    window.people.cmdFullPerms.Press(); // nothing is selected

    Type(window.people.txtAddOp, "Sea Dog");
    boxes.lstOps.Select(0);
    EXPECT_EQ(window.people.lblCurrentOp.Caption(), "seadog");
    EXPECT_EQ(PermsOf(window.people.chkPerm), DefaultPerms);
    window.people.chkPerm[0].SetValue(1);
    window.people.cmdSetPerms.Press();
    EXPECT_EQ(window.options.Perms.Item("seadog"), "1000110011111100000000000011");
    window.people.cmdFullPerms.Press();
    EXPECT_EQ(window.options.Perms.Item("seadog"), FullPerms);
    window.people.cmdDefaultPerms.Press();
    EXPECT_EQ(window.options.Perms.Item("seadog"), DefaultPerms);
    boxes.lstOps.KeyDown(DeleteKey);
    EXPECT_EQ(boxes.lstOps.ListCount(), 0);
    boxes.lstOps.KeyDown(DeleteKey); // nothing is selected any more
}

TEST_F(Panels, UnbanningWithoutTheRoomAndRemovingAList) {
    machine.disk.Put("/program/list.txt",
                     "Halyard File: Eject Lists\r\n\r\nlobby:4:0:bob\r\nlobby:4:0:eve\r\n");
    machine.dialogs.AnswerText("/program/list.txt");
    window.ejects.cmdLoadEjects.Press();
    Boxes();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(Listed(window.ejects.lstEjected), Lines{});
        for (int line : {-1, 0}) window.ejects.lstEjectListChats.Select(line);
        EXPECT_EQ(Listed(window.ejects.lstEjected), (Lines{"bob", "eve"}));
        if (time == 0) window.ejects.cmdClearList.Press();
    }
    window.ejects.lstEjected.Select(1);
    window.menus.mnuUnbanUser.Click();
    window.ejects.cmdUnbanAll.Press(); // silent without the room
    EXPECT_EQ(Boxes(), Lines{"Error: Failed to unban user: No chat name matches the eject list. Please "
                             "unban manually or re-load bans."});
    SignOn();
    Join("lobby");
    Start();
    machine.dialogs.AnswerYes();
    window.ejects.cmdUnbanAll.Press();
    Wait(10);
    EXPECT_EQ(Boxes(),
              Lines{"Unban All?: Do you really want to unban all users from 'lobby', Exchange '4'?"});
    EXPECT_EQ(Happened("unbans").size(), 2U);
    window.menus.mnuRemoveEjectedList.Click();
    EXPECT_EQ(control.EjectLists.Count(), 0U);
    EXPECT_EQ(window.ejects.lblEjectListChat.Caption(), "Current Chat: [None]");
}

} // namespace halyard
