// A console on a room: reading, speaking, and acting on people.

#include "tests/surface/DeskScene.h"

namespace halyard {

class Console : public DeskScene {
  protected:
    void SetUp() override {
        people.Enter("lobby", "opal");
        SignOn();
        Join("lobby");
        window.menus.mnuOpenConsole.Click(); // no line is selected yet
        EXPECT_EQ(window.consoles.ChatConsoles.Count(), 0U);
        window.chats.lstChats.Select(0);
        window.menus.mnuOpenConsole.Click();
        console = window.consoles.Named("Lobby");
        ASSERT_TRUE(console);
        windows.lines.clear();
    }
    std::shared_ptr<frmConsole> console;
};

TEST_F(Console, FollowsTheRoom) {
    EXPECT_EQ(console->lblChatName.Caption(), "Chat Room: lobby");
    EXPECT_EQ(console->cmdClose.BackColor(), window.connection.cmdSignOn.BackColor());
    EXPECT_EQ(Listed(console->lstPeopleHere), (Lines{"opal", "harbourbot"}));
    people.Enter("lobby", "Some One");
    people.Say("lobby", "Some One", "<b>ahoy</b>");
    Wait(1);
    console->lstPeopleHere.Select(2);
    console->cmdIgnore.Press();
    console->mnuIgnore.Click(); // once more: no effect
    people.Say("lobby", "someone", "unheard");
    people.Leave("lobby", "some one");
    Wait(1);
    EXPECT_EQ(console->txtChatMsg.Text(), "Online Host: Some One has entered the room.\r\nSome One: ahoy\r\n"
                                          "Online Host: Some One has left the room.\r\n");
    EXPECT_EQ(console->lblPeopleHere.Caption(), "People Here: 2");
    console->cmdClearText.Press();
    console->IncomingMessage("opal", std::string(65535, 'x'));
    console->IncomingMessage("opal", "anew");
    EXPECT_EQ(console->txtChatMsg.Text(), "opal: anew\r\n");
}

TEST_F(Console, SpeaksBansAndImmunes) {
    Wait(10);
    Start();
    Type(console->txtSend, "   ");
    EXPECT_EQ(console->txtSend.Text(), "   ");
    Type(console->txtSend, "hello there");
    EXPECT_EQ(console->txtSend.Text(), "");
    console->cmdBan.Press(); // nobody is selected
    console->lstPeopleHere.Select(0);
    console->mnuImmune.Click();
    EXPECT_EQ(Listed(boxes.lstImms), Lines{"opal"});
    console->mnuUnimm.Click();
    EXPECT_EQ(Listed(boxes.lstImms), Lines{});
    console->cmdBan.Press();
    Wait(3);
    EXPECT_EQ(Happened("hello"), Lines{"0 Harbour Bot says hello there"});
    EXPECT_EQ(Happened("bans"), Lines{"0 Harbour Bot bans opal"});
    machine.dialogs.AnswerYes();
    console->cmdClose.Press();
    Wait(2);
    EXPECT_EQ(Boxes(), Lines{"Close Chat?: Do you really want to close this chat?"});
    EXPECT_FALSE(network.IsInRoom("lobby", "harbourbot"));
    EXPECT_FALSE(console->txtSend.Enabled());
    EXPECT_TRUE(console->txtChatMsg.Text().ends_with("OnlineHost: ** You have left the room. **\r\n"));
}

TEST_F(Console, IsOpenedOnceAndWorksAgainAfterARejoin) {
    window.menus.mnuOpenConsole.Click();
    EXPECT_EQ(Boxes(), Lines{"Note: This chat console already exists! Focus has been set to it."});
    EXPECT_EQ(windows.lines, Lines{"focus frmConsole"});
    window.chats.cmdLeaveChat.Press();
    Join("deck"); // takes the slot that the room had
    people.Enter("deck", "bob");
    people.Say("deck", "bob", "not for this console");
    EXPECT_EQ(console->ChatIndex, window.Control().Chat.Item(1)->ChatIndex);
    console->lstPeopleHere.Select(0);
    console->cmdBan.Press(); // nor it for that room
    machine.dialogs.AnswerYes();
    console->cmdClose.Press();
    Wait(2);
    EXPECT_TRUE(network.Bans("deck").empty() && network.IsInRoom("deck", "harbourbot"));
    Join("lobby");
    people.Say("lobby", "opal", "welcome back");
    Wait(1);
    const auto& log = console->txtChatMsg.Text();
    EXPECT_EQ(log.find("not for"), std::string::npos);
    EXPECT_NE(log.find("OnlineHost: ** You have joined chat 'lobby'! **\r\n"), std::string::npos);
    EXPECT_TRUE(log.ends_with("opal: welcome back\r\n"));
    EXPECT_TRUE(console->txtSend.Enabled());
    EXPECT_EQ(console->lblPeopleHere.Caption(), "People Here: 2");

    window.consoles.Open("deck");
    EXPECT_EQ(window.consoles.ChatConsoles.Count(), 2U);
    window.consoles.DestroyChatConsole("DECK");
    EXPECT_EQ(window.consoles.Named("lobby"), console) << "the other one went";
    console->Form_Unload();
    EXPECT_EQ(window.consoles.ChatConsoles.Count(), 0U);
    EXPECT_EQ(windows.lines.back(), "unload frmConsole");
    people.Say("lobby", "opal", "nobody reads this");
    Wait(1);
}

} // namespace halyard
