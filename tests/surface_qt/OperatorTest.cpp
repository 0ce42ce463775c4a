// What an operator does in a day, at the windows themselves.

#include "tests/surface_qt/ScreenScene.h"

namespace halyard {
namespace {

using Operator = ScreenScene;

TEST_F(Operator, SignsOnJoinsTalksAndBansFromTheConsole) {
    people.Enter("lobby", "bob");
    SignOn();
    EXPECT_EQ(Find<QLabel>("lblConnectionInfo").text(), "Online!");
    EXPECT_FALSE(Find<QPushButton>("cmdSignOn").isEnabled());
    Join("lobby");
    EXPECT_EQ(Find<QLabel>("lblChatCount").text(), "Chats you are in: 1");
    ClickLine("lstChats", 0);
    EXPECT_EQ(Find<QLabel>("lblChatData(4)").text(), "2");

    OpenConsole();
    EXPECT_EQ(Find<QLabel>("lblPeopleHere", "frmConsole").text(), "People Here: 2");
    Type("txtSend", "good evening", "frmConsole");
    Enter("txtSend", "frmConsole");
    Wait(4);
    people.Say("lobby", "bob", "<b>markup</b> & more");
    Wait(1);
    ClickLine("lstPeopleHere", 0, Qt::LeftButton, "frmConsole");
    Press("cmdBan", "frmConsole");
    Wait(9);
    EXPECT_TRUE(network.IsBanned("lobby", "bob"));
    const auto log = Find<QPlainTextEdit>("txtChatMsg", "frmConsole").toPlainText();
    EXPECT_TRUE(log.contains("Harbour Bot: good evening\n")) << log.toStdString();
    EXPECT_TRUE(log.contains(Shown(bot.consoles.ChatConsoles.Item(1)->txtChatMsg.Text()).remove('\r')))
        << log.toStdString();
    EXPECT_TRUE(log.contains("bob has left the room."));

    // A second one brings the first to the front; closing ends it.
    Choose("mnuOpenConsole");
    EXPECT_EQ(bot.consoles.ChatConsoles.Count(), 1U);
    Window("frmConsole")->close();
    Settle();
    EXPECT_FALSE(Window("frmConsole"));
    EXPECT_EQ(bot.consoles.ChatConsoles.Count(), 0U);
    people.Enter("lobby", "carol");
    Wait(1);
}

TEST_F(Operator, SeesWhatAnOpDoesAndUnbans) {
    people.Enter("lobby", "opal");
    people.Enter("lobby", "bob");
    SignOn();
    MakeOp("opal");
    Join("lobby");
    people.Say("lobby", "opal", "ban bob");
    Wait(9);
    Choose("mnuEjectPanel");
    ClickLine("lstEjectListChats", 0);
    EXPECT_EQ(Line("lstEjected", 0), "bob");
    EXPECT_EQ(Find<QLabel>("lblBanCount").text(), "Bans: 1");
    ClickLine("lstEjected", 0, Qt::RightButton);
    EXPECT_TRUE(Window("mnuEjectList"));
    Choose("mnuUnbanUser");
    Wait(9);
    EXPECT_FALSE(network.IsBanned("lobby", "bob"));
    EXPECT_EQ(Find<QListView>("lstEjected").model()->rowCount(), 0);
    EXPECT_TRUE(Line("lstActions", 0).startsWith("Logged in"));
}

TEST_F(Operator, EditsWordsTemplatesPermissionsAndLocks) {
    people.Enter("lobby", "opal");
    people.Enter("lobby", "bob");
    SignOn();
    MakeOp("opal");
    Choose("mnuCcoms");
    Type("txtCcom(9)", "out", "frmCcoms");
    Press("cmdSetCcoms", "frmCcoms");
    Choose("mnuChatsends");
    Press("cmdPage(2)", "frmChatSends");
    EXPECT_TRUE(Find<QLineEdit>("txtChatSend(20)", "frmChatSends").isVisible());
    EXPECT_FALSE(Find<QLineEdit>("txtChatSend(0)", "frmChatSends").isVisible());
    EXPECT_TRUE(Find<QPushButton>("cmdPage(2)", "frmChatSends").font().bold());
    Type("txtChatSend(20)", "twenty-first", "frmChatSends");
    Press("cmdSetChatsends", "frmChatSends");
    EXPECT_EQ(bot.Control().ChatSends.Item(21), "twenty-first");
    EXPECT_EQ(bot.Control().ChatSends.Count(), 124U);
    Choose("mnuUniPerms");
    Press("chkPerm(0)", "frmUniPerms");
    Press("cmdSetUniPerms", "frmUniPerms");
    EXPECT_EQ(bot.options.UniPerms.front(), '1');
    Choose("mnuLocks");
    Press("cmdNext", "frmLocks");
    EXPECT_EQ(Find<QWidget>("FrameMain", "frmLocks").accessibleName(), "Imm Locks");
    Type("txtAddLockImm", "x", "frmLocks");
    Enter("txtAddLockImm", "frmLocks");
    EXPECT_EQ(machine.dialogs.shown.back().text,
              "Screenname lengths can only be between two characters to 100!");
    Type("txtAddLockImm", "xavier", "frmLocks");
    Enter("txtAddLockImm", "frmLocks");
    ClickLine("lstImmLocks", 0, Qt::LeftButton, "frmLocks");
    QTest::keyClick(&Find<QListView>("lstImmLocks", "frmLocks"), Qt::Key_Delete);
    EXPECT_EQ(bot.options.LockImms.Count(), 0U);

    Join("lobby");
    people.Say("lobby", "opal", "out bob");
    Wait(9);
    EXPECT_TRUE(network.IsBanned("lobby", "bob"));
}

TEST_F(Operator, SavesClearsAndLoads) {
    MakeOp("opal");
    Choose("mnuAutoBanPanel");
    Type("txtAddAB", "spam*");
    Enter("txtAddAB");
    Press("chkCharBan");
    Type("txtCharBan", "12");
    Press("optAB(2)");
    Find<QListView>("lstABs").setFocus(); // and so out of the box
    Choose("mnuOtherPanel");
    machine.dialogs.AnswerText("/program/mine.hys");
    Press("cmdSaveSettings");
    machine.dialogs.AnswerYes();
    Press("cmdNewSettings");
    EXPECT_EQ(Find<QListView>("lstABs").model()->rowCount(), 0);
    EXPECT_FALSE(Find<QAbstractButton>("chkCharBan").isChecked());
    EXPECT_TRUE(Find<QAbstractButton>("optAB(0)").isChecked());
    machine.dialogs.AnswerText("/program/mine.hys");
    Press("cmdLoadSettings");
    EXPECT_EQ(Line("lstOps", 0), "opal");
    EXPECT_EQ(Line("lstABs", 0), "spam*");
    EXPECT_TRUE(Find<QAbstractButton>("chkCharBan").isChecked());
    EXPECT_EQ(Find<QLineEdit>("txtCharBan").text(), "12");
    EXPECT_TRUE(Find<QAbstractButton>("optAB(2)").isChecked());
}

TEST_F(Operator, LosesTheConnectionAndComesBack) {
    Press("chkAutoLogin");
    SignOn();
    Join("lobby");
    Press("chkRejoinError");
    people.Drop("harbourbot");
    ASSERT_TRUE(world.RunUntil([&] { return bot.reconnection.Reconnecting; }, 5000));
    ASSERT_TRUE(Window("frmNotice"));
    EXPECT_FALSE(Find<QPlainTextEdit>("txtNotices", "frmNotice").toPlainText().isEmpty());
    Wait(60);
    EXPECT_TRUE(network.IsInRoom("lobby", "harbourbot"));
    EXPECT_EQ(Find<QLabel>("lblConnectionInfo").text(), "Online!");
    EXPECT_EQ(Find<QListView>("lstChats").model()->rowCount(), 1);
    if (Window("frmNotice")) Press("cmdStop", "frmNotice");
    EXPECT_FALSE(Window("frmNotice"));
}

} // namespace
} // namespace halyard
