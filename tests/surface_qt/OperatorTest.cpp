// One day of an operator at the windows themselves.

#include "tests/surface_qt/ScreenScene.h"

namespace halyard {

using Operator = ScreenScene;

TEST_F(Operator, ADayAtTheWindows) {
    Choose("mnuOpImmPanel");
    Type("txtAddOp", "opal");
    Enter("txtAddOp");
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
    Choose("mnuChatsends");
    Press("cmdPage(2)", "frmChatSends");
    EXPECT_TRUE(Find<QPushButton>("cmdPage(2)", "frmChatSends").font().bold());
    EXPECT_FALSE(Find<QLineEdit>("txtChatSend(0)", "frmChatSends").isVisible());
    Choose("mnuLocks");
    Press("cmdPrevious", "frmLocks");
    EXPECT_EQ(Find<QWidget>("FrameMain", "frmLocks").accessibleName(), "Ban Locks");
    Type("txtAddLockBan", "xavier", "frmLocks");
    Enter("txtAddLockBan", "frmLocks");
    ClickLine("lstBanLocks", 0, Qt::LeftButton, "frmLocks");
    QTest::keyClick(&Find<QListView>("lstBanLocks", "frmLocks"), Qt::Key_Delete);
    EXPECT_EQ(bot.options.LockBans.Count(), 0U);

    for (const auto* name : {"bob", "carol"}) people.Enter("lobby", name);
    Choose("mnuConnectionPanel");
    Press("chkAutoLogin");
    SignOn();
    EXPECT_EQ(Find<QLabel>("lblConnectionInfo").text(), "Online!");
    EXPECT_FALSE(Find<QPushButton>("cmdSignOn").isEnabled());
    Join("lobby");
    Press("chkRejoinError");
    ClickLine("lstChats", 0);
    people.Leave("lobby", "carol");
    Wait(1);
    ClickLine("lstChats", 0); // once more, for the news
    EXPECT_EQ(Find<QLabel>("lblChatData(4)").text(), "2");
    OpenConsole();
    Type("txtSend", "good evening", "frmConsole");
    Enter("txtSend", "frmConsole");
    people.Say("lobby", "bob", "<b>markup</b> & more");
    Wait(5);
    ClickLine("lstPeopleHere", 0, Qt::LeftButton, "frmConsole");
    Press("cmdBan", "frmConsole");
    Wait(9);
    const auto log = Find<QPlainTextEdit>("txtChatMsg", "frmConsole").toPlainText();
    EXPECT_EQ(log, Shown(bot.consoles.ChatConsoles.Item(1)->txtChatMsg.Text()).remove('\r'));
    EXPECT_TRUE(log.contains("Harbour Bot: good evening\n") && log.contains("bob has left the room."));
    Window("frmConsole")->close();
    Settle();
    EXPECT_FALSE(Window("frmConsole"));
    EXPECT_EQ(bot.consoles.ChatConsoles.Count(), 0U);
    Choose("mnuEjectPanel");
    ClickLine("lstEjectListChats", 0);
    EXPECT_EQ(Line("lstEjected", 0), "bob");
    ClickLine("lstEjected", 0, Qt::RightButton);
    EXPECT_TRUE(Window("mnuEjectList"));
    Window("mnuEjectList")->close();

    people.Drop("harbourbot");
    Wait(1);
    EXPECT_FALSE(Find<QPlainTextEdit>("txtNotices", "frmNotice").toPlainText().isEmpty());
    Wait(60);
    EXPECT_TRUE(network.IsInRoom("lobby", "harbourbot"));
    EXPECT_EQ(Find<QListView>("lstChats").model()->rowCount(), 1);
    Press("cmdStop", "frmNotice");
    EXPECT_FALSE(Window("frmNotice"));
}

} // namespace halyard
