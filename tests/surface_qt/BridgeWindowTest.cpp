// What the bridge adds to the windows: names, keys, and the room that it takes.

#include "tests/surface_qt/ScreenScene.h"

#include <QComboBox>

namespace halyard {
namespace {

class BridgeWindows : public ScreenScene {
  protected:
    BridgeWindows() : ScreenScene(true) {}

    static bool IsWhole(const char* name) {
        auto& widget = Find<QWidget>(name);
        const auto place = QRect(widget.mapTo(Window("frmMain"), QPoint()), widget.size());
        return widget.isVisible() && Window("frmMain")->rect().contains(place);
    }
};

TEST_F(BridgeWindows, StandBelowThePanelsAndNameEverything) {
    EXPECT_EQ(bot.form.Height(), RateLists::PlainHeight);
    bridge->row.EachControl(NameCheck{"frmMain"});
    EXPECT_EQ(Find<QWidget>("lblFoot").accessibleName(), "Foot line");
    bridge->foot.Tell("<b>something & more</b>");
    EXPECT_EQ(Find<QWidget>("lblFoot").accessibleName(), "<b>something & more</b>");
    Press("cmdNetwork");
    for (int page = 0; page < 5; ++page) {
        bridge->window.optPage.Select(page);
        Settle();
        bridge->window.EachControl(NameCheck{"frmNetwork"});
    }
    Choose("mnuStatsPanel");
    EXPECT_FALSE(Find<QWidget>("cmbNetwork").isVisible());
    EXPECT_TRUE(Find<QWidget>("lblFoot").isVisible());
    Choose("mnuConnectionPanel");
    bot.rates.Rated(0, "lobby");
    Window("frmMain")->resize(600, 440); // a screen of 640 by 480 pixels with its frame
    Settle();
    EXPECT_LE(Window("frmMain")->height(), 440);
    for (const auto* name : {"lstRated(0)", "cmbNetwork", "cmdNetwork", "lblNetworkState", "lblFoot"})
        EXPECT_TRUE(IsWhole(name)) << name;
    EXPECT_LT(Find<QWidget>("lstRated(0)").mapToGlobal(QPoint()).y(),
              Find<QWidget>("cmbNetwork").mapToGlobal(QPoint()).y());
}

TEST_F(BridgeWindows, AreWorkedByKeys) {
    auto& choice = Find<QComboBox>("cmbNetwork");
    auto& hosts = Find<QComboBox>("cmbServer");
    hosts.setEditText("typed.home.arpa");
    const auto laidDown = hosts.count();
    choice.setFocus();
    QTest::keyClick(&choice, Qt::Key_End);
    EXPECT_EQ(bridge->chosen.Name(), "Open server");
    EXPECT_EQ(hosts.count(), laidDown + 1);
    QTest::keyClick(&choice, Qt::Key_Home);
    EXPECT_EQ(bridge->chosen.Name(), LaidDownNetwork);
    EXPECT_EQ(hosts.count(), laidDown);
    EXPECT_EQ(hosts.currentText(), "typed.home.arpa");
    EXPECT_EQ(bot.options.Controls.cmbServer.Text(), "typed.home.arpa");

    bridge->foot.Tell("told");
    auto* focus = static_cast<QWidget*>(&choice);
    for (int step = 0; step < 4 && focus->objectName() != "lblFoot"; ++step) {
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = QApplication::focusWidget();
        ASSERT_TRUE(focus);
    }
    QTest::keyClick(focus, Qt::Key_Return);
    Settle();
    EXPECT_TRUE(Find<QListView>("lstTold", "frmNetwork").isVisible());
    Window("frmNetwork")->close();
    Settle();
    EXPECT_FALSE(bridge->window.Loaded());
}

} // namespace
} // namespace halyard
