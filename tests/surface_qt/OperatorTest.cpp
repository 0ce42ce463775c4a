// What an operator does in a day, at the windows themselves.

#include "tests/surface_qt/ScreenScene.h"

namespace halyard {
namespace {

using Operator = ScreenScene;

TEST_F(Operator, TalksAndBansFromTheConsole) {
    people.Enter("lobby", "bob");
    SignOn();
    EXPECT_EQ(Find<QLabel>("lblConnectionInfo").text(), "Online!");
    EXPECT_FALSE(Find<QPushButton>("cmdSignOn").isEnabled());
    Join("lobby");
    ClickLine("lstChats", 0);
    EXPECT_EQ(Find<QLabel>("lblChatData(4)").text(), "2");
    people.Enter("lobby", "carol");
    Wait(1);
    ClickLine("lstChats", 0); // once more, for the news
    EXPECT_EQ(Find<QLabel>("lblChatData(4)").text(), "3");
    people.Leave("lobby", "carol");
    Wait(1);

    OpenConsole();
    EXPECT_EQ(Find<QLabel>("lblPeopleHere", "frmConsole").text(), "People Here: 2");
    Type("txtSend", "good evening", "frmConsole");
    Enter("txtSend", "frmConsole");
    people.Say("lobby", "bob", "<b>markup</b> & more");
    Wait(5);
    ClickLine("lstPeopleHere", 0, Qt::LeftButton, "frmConsole");
    Press("cmdBan", "frmConsole");
    Wait(9);
    EXPECT_TRUE(network.IsBanned("lobby", "bob"));
    const auto log = Find<QPlainTextEdit>("txtChatMsg", "frmConsole").toPlainText();
    EXPECT_EQ(log, Shown(bot.consoles.ChatConsoles.Item(1)->txtChatMsg.Text()).remove('\r'));
    EXPECT_TRUE(log.contains("Harbour Bot: good evening\n") && log.contains("bob has left the room."));

    // A second one brings the first to the front; closing ends it.
    Choose("mnuOpenConsole");
    EXPECT_EQ(bot.consoles.ChatConsoles.Count(), 1U);
    Window("frmConsole")->close();
    Settle();
    EXPECT_FALSE(Window("frmConsole"));
    EXPECT_EQ(bot.consoles.ChatConsoles.Count(), 0U);

    Choose("mnuEjectPanel");
    ClickLine("lstEjectListChats", 0);
    EXPECT_EQ(Line("lstEjected", 0), "bob");
    ClickLine("lstEjected", 0, Qt::RightButton);
    EXPECT_TRUE(Window("mnuEjectList"));
}

TEST_F(Operator, EditsWordsTemplatesPermissionsAndLocks) {
    Choose("mnuCcoms");
    Type("txtCcom(9)", "out", "frmCcoms");
    Press("cmdSetCcoms", "frmCcoms");
    EXPECT_EQ(bot.options.Ccoms.GetCcom(9), "out");
    Choose("mnuChatsends");
    Press("cmdPage(2)", "frmChatSends");
    EXPECT_TRUE(Find<QLineEdit>("txtChatSend(20)", "frmChatSends").isVisible());
    EXPECT_FALSE(Find<QLineEdit>("txtChatSend(0)", "frmChatSends").isVisible());
    EXPECT_TRUE(Find<QPushButton>("cmdPage(2)", "frmChatSends").font().bold());
    Type("txtChatSend(20)", "twenty-first", "frmChatSends");
    Press("cmdSetChatsends", "frmChatSends");
    EXPECT_EQ(bot.Control().ChatSends.Item(21), "twenty-first");
    Choose("mnuUniPerms");
    Press("chkPerm(0)", "frmUniPerms");
    Press("cmdSetUniPerms", "frmUniPerms");
    EXPECT_EQ(bot.options.UniPerms.front(), '1');
    Choose("mnuLocks");
    Press("cmdPrevious", "frmLocks");
    EXPECT_EQ(Find<QWidget>("FrameMain", "frmLocks").accessibleName(), "Ban Locks");
    Type("txtAddLockBan", "xavier", "frmLocks");
    Enter("txtAddLockBan", "frmLocks");
    EXPECT_EQ(bot.options.LockBans.Count(), 1U);
    ClickLine("lstBanLocks", 0, Qt::LeftButton, "frmLocks");
    QTest::keyClick(&Find<QListView>("lstBanLocks", "frmLocks"), Qt::Key_Delete);
    EXPECT_EQ(bot.options.LockBans.Count(), 0U);
}

TEST_F(Operator, SetsBoxesThatAFileBringsBack) {
    Choose("mnuOpImmPanel");
    Type("txtAddOp", "opal");
    Enter("txtAddOp");
    ClickLine("lstOps", 0);
    Choose("mnuAutoBanPanel");
    Press("chkCharBan");
    Type("txtCharBan", "12");
    Press("optAB(2)");
    Find<QListView>("lstABs").setFocus(); // and so out of the box
    Choose("mnuOtherPanel");
    for (int file = 0; file < 2; ++file) machine.dialogs.AnswerText("/program/mine.hys");
    machine.dialogs.AnswerYes();
    for (const auto* button : {"cmdSaveSettings", "cmdNewSettings", "cmdLoadSettings"}) {
        Press(button);
        const bool set = button != std::string("cmdNewSettings");
        EXPECT_EQ(Line("lstOps", 0), set ? "opal" : "") << button;
        EXPECT_EQ(Find<QAbstractButton>("chkCharBan").isChecked(), set) << button;
        EXPECT_EQ(Find<QLineEdit>("txtCharBan").text() == "12", set) << button;
        EXPECT_EQ(Find<QAbstractButton>("optAB(2)").isChecked(), set) << button;
    }
}

TEST_F(Operator, LosesTheConnectionAndComesBack) {
    Press("chkAutoLogin");
    SignOn();
    Join("lobby");
    Press("chkRejoinError");
    people.Drop("harbourbot");
    Wait(1);
    ASSERT_TRUE(Window("frmNotice"));
    EXPECT_FALSE(Find<QPlainTextEdit>("txtNotices", "frmNotice").toPlainText().isEmpty());
    Wait(60);
    EXPECT_TRUE(network.IsInRoom("lobby", "harbourbot"));
    EXPECT_EQ(Find<QListView>("lstChats").model()->rowCount(), 1);
    Press("cmdStop", "frmNotice");
    EXPECT_FALSE(Window("frmNotice"));
}

} // namespace
} // namespace halyard
