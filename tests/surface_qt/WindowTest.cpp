// The windows as such: names, sizes, keys, the tray, and what widgets do with extreme texts and lists.

#include "surface/qt/bind/Bind.h"
#include "tests/surface_qt/ScreenScene.h"

#include <QScrollBar>

#include <set>

namespace halyard {

using Windows = ScreenScene;

TEST_F(Windows, NameEveryWidget) {
    people.Enter("lobby", "bob");
    SignOn();
    Join("lobby");
    OpenConsole();
    for (auto* entry : {"mnuCcoms", "mnuUniPerms", "mnuLocks", "mnuChatsends", "mnuIMComs", "mnuAbout"})
        Choose(entry);
    bot.reconnection.Alert.Show();
    NameCheck check{"frmMain"};
    bot.EachControl(check);
    EXPECT_GT(check.count, 200);
    bot.ccomsWindow.EachControl(NameCheck{"frmCcoms"});
    bot.uniPermsWindow.EachControl(NameCheck{"frmUniPerms"});
    bot.locksWindow.EachControl(NameCheck{"frmLocks"});
    bot.chatSendsWindow.EachControl(NameCheck{"frmChatSends"});
    bot.imComsWindow.EachControl(NameCheck{"frmIMComs"});
    bot.creditsWindow.EachControl(NameCheck{"frmCredits"});
    bot.reconnection.Alert.EachControl(NameCheck{"frmNotice"});
    bot.consoles.ChatConsoles.Item(1)->EachControl(NameCheck{"frmConsole"});
    for (auto* name : {"mnuFile", "mnuLoginSN", "mnuExit2", "mnuRemoveEjectedList"})
        EXPECT_TRUE(Window("frmMain")->findChild<QObject*>(name)) << name;
}

TEST_F(Windows, ReachEveryPartByTab) {
    for (int panel = 0; panel < 7; ++panel) {
        Choose(bot.menus.mnuPanels[static_cast<std::size_t>(panel)].Name.c_str());
        auto& page = Find<QWidget>(bot.FrameTabs[static_cast<std::size_t>(panel)].Name.c_str());
        EXPECT_TRUE(page.isVisible());
        for (int other = 0; other < 7; ++other)
            EXPECT_EQ(bot.FrameTabs[static_cast<std::size_t>(other)].Visible(), other == panel) << other;
        std::set<QWidget*> met;
        for (int step = 0; step < 60 && QApplication::focusWidget(); ++step) {
            met.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        for (auto* child : page.findChildren<QWidget*>())
            if ((child->focusPolicy() & Qt::TabFocus) && child->isVisible() && child->isEnabled() &&
                !child->focusProxy() && !child->inherits("QRadioButton")) {
                EXPECT_TRUE(met.count(child)) << child->objectName().toStdString() << " on " << panel;
            }
        EXPECT_TRUE(met.count(&Find<QWidget>("lblContents")));
    }
}

TEST_F(Windows, GrowForTheMenuAndTheLimitedRooms) {
    auto& window = *Window("frmMain");
    const auto plain = window.size();
    QTest::keyClick(&window, Qt::Key_F10);
    Wait(1);
    EXPECT_GT(window.width(), plain.width());
    EXPECT_FALSE(Find<QWidget>("lblContents").isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>("lblMenu(0)"));
    QTest::keyClick(&Find<QWidget>("lblMenu(0)"), Qt::Key_Return);
    EXPECT_TRUE(Window("mnuFile"));
    Window("mnuFile")->close();
    Press("lblMenu(4)");
    EXPECT_EQ(window.size(), plain);

    window.showMaximized();
    Settle();
    Press("lblContents"); // where the menu doesn't slide
    EXPECT_GE(Find<QWidget>("lblMenu(4)").visibleRegion().boundingRect().width(),
              Find<QWidget>("lblMenu(4)").sizeHint().width());
    Press("lblMenu(4)");
    window.showNormal();
    Settle();
    EXPECT_EQ(window.size(), plain);

    Press("lblContents");
    Wait(1);
    window.resize(QSize(plain.width() - 100, plain.height())); // no room: no scroll bars over the panel
    Settle();
    for (auto* bars : window.findChildren<QScrollBar*>())
        EXPECT_FALSE(bars->isVisible() && bars->orientation() == Qt::Horizontal);
    Press("lblMenu(4)");
    window.resize(plain);
    Settle();

    bot.rates.Rated(0, "lobby");
    Settle();
    EXPECT_GT(window.height(), plain.height());
    EXPECT_TRUE(Find<QWidget>("lstRated(0)").isVisible());
    ClickLine("lstRated(0)", 0);
    QTest::keyClick(&Find<QListView>("lstRated(0)"), Qt::Key_Return);
    Settle();
    EXPECT_EQ(window.size(), plain);
}

TEST_F(Windows, TakeTheTypedTextBeforeAKeyActs) {
    Choose("mnuOtherPanel");
    Type("txtUnrate", "77");
    EXPECT_EQ(bot.options.UnratePause, 5);
    machine.dialogs.AnswerText("/program/typed.hys");
    QTest::keyClick(&Find<QLineEdit>("txtUnrate"), Qt::Key_S, Qt::ControlModifier);
    Settle();
    EXPECT_NE(machine.disk.Contents("/program/typed.hys").find("unratepause:77"), std::string::npos);
    machine.dialogs.shown.clear();
    Type("txtUnrate", "0");
    QTest::keyClick(&Find<QLineEdit>("txtUnrate"), Qt::Key_4, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(machine.dialogs.shown.size(), 1U) << "left once, not once more with the page";
}

TEST_F(Windows, HideInTheTrayWhereThereIsOne) {
    auto* window = Window("frmMain");
    for (bool tray : {true, false}) {
        machine.desktop.tray = tray;
        window->showMinimized();
        Settle();
        EXPECT_EQ(window->isVisible(), !tray);
        bot.Form_MouseMove(0, 0, tray ? 515 : 517, 0);
        EXPECT_EQ(window->isMinimized(), !tray);
    }
    EXPECT_TRUE(Window("mnuSystemTray"));
    Window("mnuSystemTray")->close();
    windows.Show(bot.form);
    EXPECT_FALSE(window->isMinimized());
    window->close();
    EXPECT_EQ(machine.desktop.quits, 1);
    EXPECT_EQ(machine.desktop.trayTip, "");
}

TEST(Bound, ListsFollowTenThousandLines) {
    ListBox list("lst");
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    for (int line = 0; line < 10'000; ++line) list.AddItem("line " + std::to_string(line));
    std::unique_ptr<QListView> view(BindList(list, "Lines"));
    view->show();
    list.AddItem("<b>last</b>");
    EXPECT_EQ(view->model()->rowCount(), 10'001);
    EXPECT_EQ(view->model()->index(10'000, 0).data().toString(), "<b>last</b>");
    list.Select(5000);
    EXPECT_EQ(view->currentIndex().row(), 5000);
    for (int line : {9000, 10}) list.RemoveItem(line);
    EXPECT_EQ(view->selectionModel()->selectedIndexes().value(0).row(), 4999);
    QTest::keyClick(view.get(), Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 5000);
    list.RemoveItem(5000); // the view moves on to a neighbour, the list has none
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_TRUE(view->selectionModel()->selectedIndexes().isEmpty());
    EXPECT_EQ(clicks, 2);
    list.Clear();
    EXPECT_EQ(view->model()->rowCount(), 0);
    view.reset();
    list.AddItem("nobody looks");
}

TEST(Bound, BoxesTakeNoMoreThanTheirLengthFromAPerson) {
    TextBox box("txt", "program", 4);
    std::unique_ptr<QLineEdit> line(BindLine(box, "Text"));
    QTest::keyClicks(line.get(), "s");
    EXPECT_EQ(line->text(), "program");
    line->selectAll();
    QTest::keyClick(line.get(), Qt::Key_Delete);
    QTest::keyClicks(line.get(), "12345678");
    EXPECT_EQ(box.Text(), "1234");
    box.SetText("\x80 <i>&amp;</i>");
    EXPECT_EQ(line->text(), QString::fromUtf8("€ <i>&amp;</i>"));
}

TEST(Bound, LogsTakeWhatIsNew) {
    TextBox box("txt");
    std::unique_ptr<QPlainTextEdit> log(BindLog(box, "Log"));
    box.Append("one\r\n");
    box.Append("<b>two</b>\r\n");
    EXPECT_EQ(log->toPlainText(), "one\n<b>two</b>\n");
    box.SetText("");
    box.Append("three");
    EXPECT_EQ(log->toPlainText(), "three");
    EXPECT_TRUE(log->textCursor().atEnd());
    EXPECT_TRUE(log->isReadOnly());
}

} // namespace halyard
