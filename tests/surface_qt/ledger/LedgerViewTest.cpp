// The window Ledger and the bar Bridge on the screen, worked by keys alone.

#include "tests/surface/ledger/LedgerDesk.h"
#include "tests/surface_qt/ScreenScene.h"

#include <QScrollBar>
#include <QTreeView>

namespace halyard {
namespace {

class LedgerView : public ScreenScene, public LedgerDesk {
  protected:
    LedgerView() : ScreenScene(true) { Fill(window.hooks); }

    LedgerWindow& window = bridge->ledgerWindow;

    static void Key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        auto* focus = QApplication::focusWidget();
        ASSERT_TRUE(focus);
        QTest::keyClick(focus, key, with);
        Settle();
    }
    /// Tabs on until the widget has the focus.
    static void TabTo(const char* name) {
        for (int step = 0; step < 40 && QApplication::focusWidget()->objectName() != QLatin1String(name);
             ++step)
            Key(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(name));
    }
    /// By Ctrl+B, from wherever the main window is.
    void OpenByKeys() {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::ControlModifier);
        Settle();
        auto* menu = static_cast<QMenu*>(Window("mnuBridge"));
        ASSERT_TRUE(menu);
        for (auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(menu, key);
        Settle();
        ASSERT_TRUE(Window("frmLedger"));
        QApplication::setActiveWindow(Window("frmLedger"));
        Find<QLineEdit>("txtSearch", "frmLedger").setFocus();
    }
    static QTreeView& Table(const char* name) { return Find<QTreeView>(name, "frmLedger"); }
    static QString Cell(const char* table, int row, int column) {
        return Table(table).model()->index(row, column).data().toString();
    }
};

TEST_F(LedgerView, OpensFromTheBarBelowCloseMenu) {
    bot.slide.Open();
    Wait(3);
    const auto& close = Find<QWidget>("lblMenu(4)");
    const auto& bar = Find<QWidget>("lblBridge");
    EXPECT_GT(bar.y(), close.y());
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.accessibleName(), "Bridge");
    EXPECT_EQ(bot.slide.lblMenu.size(), 5U);
    BadWord({"alice"});
    OpenByKeys();
    NameCheck names{"frmLedger"};
    window.EachControl(names);
    EXPECT_GT(names.count, 50);
}

TEST_F(LedgerView, IsWorkedByKeys) {
    BadWord({"alice", "bob", "WWWWWWWWWWWWWWWW"});
    ledger.Ban("<b>x</b>\r\n", "lobby", L::Op("roomboss", "ban x"));
    OpenByKeys();
    QTest::keyClicks(QApplication::focusWidget(), "kind:ban rule:sp4m foo:x");
    Key(Qt::Key_Return);
    EXPECT_EQ(Find<QLineEdit>("txtSearch", "frmLedger").cursorPosition(), 19);
    Key(Qt::Key_End);
    for (int letter = 0; letter < 6; ++letter) Key(Qt::Key_Backspace);
    Key(Qt::Key_Return);
    EXPECT_EQ(Table("tblActs").model()->rowCount(), 3);

    TabTo("tblActs");
    for (int step = 0; step < 3; ++step) Key(Qt::Key_Down);
    EXPECT_EQ(window.list.Chosen()->personName, "alice");
    Key(Qt::Key_C, Qt::ControlModifier);
    Key(Qt::Key_P);
    EXPECT_TRUE(Find<QPushButton>("cmdForget", "frmLedger").isVisible());
    TabTo("txtNote");
    QTest::keyClicks(QApplication::focusWidget(), "seen before");
    Key(Qt::Key_Return);
    TabTo("cmdImmune");
    Key(Qt::Key_Space);
    EXPECT_EQ(wishes, (Lines{"note seen before", "immune alice"}));
    wishes.clear();
    TabTo("tblActs");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(window.list.Chosen()->personName, "alice");
    Key(Qt::Key_R);
    EXPECT_EQ(Find<QLineEdit>("txtWho", "frmLedger").text(), "autoword *sp4m*");

    Key(Qt::Key_Home);
    Key(Qt::Key_Space);
    Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    Key(Qt::Key_U);
    EXPECT_FALSE(Find<QWidget>("txtMoved", "frmLedger").isVisible());
    EXPECT_EQ(Cell("tblPlan", 0, 1), "takes *sp4m* off autowords");
    TabTo("tblPlan");
    for (int step = 0; step < 2; ++step) Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    EXPECT_FALSE(Table("tblPlan").model()->index(1, 0).data(Qt::CheckStateRole).toBool());
    auto& view = Table("tblPlan");
    const auto box = view.visualRect(view.model()->index(0, 0)).left() + 10;
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      {box, view.visualRect(view.model()->index(0, 0)).center().y()});
    TabTo("cmdCarryOut");
    Key(Qt::Key_Return);
    EXPECT_EQ(wishes, Lines{"undo bob"});
    TabTo("cmdActs");
    Key(Qt::Key_Return);
    EXPECT_TRUE(Table("tblActs").isVisible());
}

TEST_F(LedgerView, KeepsTheLinesUnderTheMouseWhereTheyAre) {
    for (int number = 0; number < 4300; ++number)
        ledger.Ban("guest" + std::to_string(number), "lobby", L::Hand("lstABs"));
    OpenByKeys();
    auto& view = Table("tblActs");
    view.setFocus();
    for (int page = 0; page < 19; ++page) Key(Qt::Key_End);
    EXPECT_EQ(view.model()->rowCount(), 4000);
    const auto seen = [&view] { return view.indexAt({5, 30}).data().toString(); };
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() - 1);
    const auto before = seen();
    ledger.Ban("late", "lobby", L::Hand("lstABs"));
    window.Written();
    Settle();
    EXPECT_EQ(seen(), before);
    EXPECT_TRUE(Find<QWidget>("lblNew", "frmLedger").isVisible());
    window.list.tblActs.AtEnd(); // 200 lines come below, and as many go above
    Settle();
    EXPECT_EQ(view.model()->rowCount(), 4000);
    EXPECT_EQ(seen(), before);
    EXPECT_EQ(Cell("tblActs", 0, 0), "#4100");
    Key(Qt::Key_Home);
    EXPECT_EQ(Cell("tblActs", 0, 3), "late");
}

} // namespace
} // namespace halyard
