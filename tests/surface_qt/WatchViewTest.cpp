// The foot line and the window Watch on the screen, worked by keys.

#include "tests/surface_qt/ScreenScene.h"

#include <QTreeView>

namespace halyard {
namespace {

class WatchView : public ScreenScene {
  protected:
    WatchView() : ScreenScene(true) {}

    WatchWindow& watch = bridge->watchWindow;
};

/// Counts how often a widget is painted.
struct PaintCount : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

TEST_F(WatchView, IsOpenedFromTheFootLineAndWorkedByKeys) {
    SignOn();
    Join("lobby");
    auto& field = Find<QAbstractButton>("lblStanding(0)");
    EXPECT_EQ(field.accessibleName(), "Connection: Online");
    field.setFocus();
    bridge->foot.Tell("told");
    Settle();
    EXPECT_TRUE(Find<QWidget>("lblFoot").hasFocus()) << "no other control takes the next key";
    Wait(11);
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Rooms: 1 room");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Settle();
    ASSERT_TRUE(Window("frmWatch"));
    QApplication::setActiveWindow(Window("frmWatch"));
    for (int page = 0; page < 4; ++page) {
        watch.optPage.Select(page);
        Settle();
        watch.EachControl(NameCheck{"frmWatch"});
    }

    auto& strips = Find<QWidget>("strips", "frmWatch");
    strips.setFocus();
    EXPECT_EQ(watch.history.strips.Point(), 59);
    QTest::keyClick(&strips, Qt::Key_Left);
    QTest::keyClick(&strips, Qt::Key_PageUp);
    EXPECT_EQ(watch.history.strips.Point(), 48);
    QTest::keyClick(&strips, Qt::Key_Right);
    EXPECT_EQ(watch.history.strips.Point(), 49);
    EXPECT_EQ(strips.accessibleName(), Shown(watch.history.lblPoint.Caption()));
    QTest::keyClick(&strips, Qt::Key_Home);
    EXPECT_EQ(watch.history.strips.Point(), 0);
    QTest::mouseClick(&strips, Qt::LeftButton, {}, QPoint(strips.width() - 10, 30));
    EXPECT_EQ(watch.history.strips.Point(), 59);
    QTest::keyClick(&strips, Qt::Key_T);
    Settle();
    auto& table = Find<QTreeView>("tblHistory", "frmWatch");
    EXPECT_TRUE(table.isVisible());
    EXPECT_FALSE(strips.isVisible());
    EXPECT_EQ(table.currentIndex().row(), 0) << "the same minute";
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_T);
    Settle();
    EXPECT_TRUE(strips.isVisible());
    strips.setFocus();
    QTest::keyClick(&strips, Qt::Key_Return);
    Settle();
    ASSERT_TRUE(Window("frmLedger"));
    EXPECT_TRUE(Find<QLineEdit>("txtSearch", "frmLedger").text().startsWith("since:2027-"));
}

TEST_F(WatchView, PaintsTheFootLineOnlyWhenItSaysSomethingElse) {
    SignOn();
    Join("lobby");
    people.Enter("lobby", "alice");
    Wait(2);
    PaintCount paints;
    for (int field = 0; field < 6; ++field)
        Find<QWidget>(("lblStanding(" + std::to_string(field) + ")").c_str()).installEventFilter(&paints);
    for (int second = 0; second < 20; ++second) people.Say("lobby", "alice", "talk"), Wait(1);
    EXPECT_EQ(paints.count, 0);
    people.Drop("harbourbot");
    Wait(2);
    EXPECT_GT(paints.count, 0);
}

} // namespace
} // namespace halyard
