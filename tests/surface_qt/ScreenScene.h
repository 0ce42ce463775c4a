#pragma once

// The whole bot with its real windows, and the practice network, in one simulated world. The operator's hands
// are mouse and keyboard events.

#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "surface/EachControl.h"
#include "surface/bridge/Bridge.h"
#include "surface/qt/QtWindows.h"
#include "surface/qt/bind/Follow.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace halyard {

class ScreenScene : public ::testing::Test {
  public:
    /// The window of this name that is on the screen, or null.
    static QWidget* Window(const char* name) {
        for (auto* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name) && window->isVisible()) return window;
        return nullptr;
    }

  protected:
    explicit ScreenScene(bool withBridge = false) {
        EXPECT_TRUE(network.Start());
        if (withBridge) bridge = std::make_unique<Bridge>(bot);
        windows.Draw(bot, bridge.get());
        bot.Form_Load();
        if (bridge) bridge->Start();
        windows.Show(bot.form);
        Settle();
    }
    ~ScreenScene() override { windows.Close(); }

    SimWorld world;
    SimPlatform service{world};
    SimPlatform machine{world};
    PracticeNetwork network{service, {}};
    QtWindows windows;
    frmMain bot{machine, &windows};
    std::unique_ptr<Bridge> bridge; ///< null unless the scene asks for one
    PracticeLevers& people = network.Levers();

    /// A widget of a window; the test ends when there is none.
    template <typename T>
    static T& Find(const char* name, const char* window = "frmMain") {
        auto* place = Window(window);
        auto* found = place ? place->findChild<T*>(name) : nullptr;
        EXPECT_TRUE(found) << name << " in " << window;
        if (!found) std::abort();
        return *found;
    }
    static void Press(const char* button, const char* window = "frmMain") {
        auto& found = Find<QAbstractButton>(button, window);
        EXPECT_TRUE(found.isVisible()) << button;
        // A check box is pressed on its mark: it may be wider than what can be pressed.
        const auto place = found.isCheckable() ? QPoint(8, found.height() / 2) : found.rect().center();
        QTest::mouseClick(&found, Qt::LeftButton, {}, place);
        Settle();
    }
    /// Types over what stands in the box.
    static void Type(const char* box, const char* text, const char* window = "frmMain") {
        auto& line = Find<QLineEdit>(box, window);
        line.setFocus();
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, text);
    }
    static void Enter(const char* box, const char* window = "frmMain") {
        QTest::keyClick(&Find<QLineEdit>(box, window), Qt::Key_Return);
        Settle();
    }
    static void ClickLine(const char* list, int row, Qt::MouseButton button = Qt::LeftButton,
                          const char* window = "frmMain") {
        auto& view = Find<QListView>(list, window);
        Settle(); // lines that came are laid out late
        const auto place = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(view.viewport(), button, {}, place);
        Settle();
    }
    static void Choose(const char* entry) {
        Find<QAction>(entry).trigger();
        Settle();
    }
    static QString Line(const char* list, int row) {
        return Find<QListView>(list).model()->index(row, 0).data().toString();
    }
    static void Settle() {
        for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
    }
    void Join(const char* room) {
        Choose("mnuChatsPanel");
        Type("txtChat", room);
        Press("cmdJoinChat");
        Wait(5);
    }
    void SignOn() {
        Type("txtSN", "Harbour Bot");
        Type("txtPW", "secret");
        Press("cmdSignOn");
        Wait(5);
    }
    void OpenConsole() {
        Choose("mnuChatsPanel");
        ClickLine("lstChats", 0, Qt::RightButton);
        ASSERT_TRUE(Window("mnuChats"));
        Window("mnuChats")->close();
        Choose("mnuOpenConsole");
    }
    void Wait(int seconds) { world.RunFor(seconds * 1000), Settle(); }
};

/// Every control has its widget, with a name for people, too.
struct NameCheck {
    const char* window;
    int count = 0;
    template <typename T>
    void operator()(T& control) {
        ++count;
        auto* place = ScreenScene::Window(window);
        ASSERT_TRUE(place) << window;
        auto* widget = std::is_same_v<T, Form> ? place : place->findChild<QWidget*>(Shown(control.Name));
        ASSERT_TRUE(widget) << control.Name << " in " << window;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << control.Name << " in " << window;
        EXPECT_TRUE(control.ToolTip.empty() || widget->toolTip() == Shown(control.ToolTip)) << control.Name;
    }
};

} // namespace halyard
