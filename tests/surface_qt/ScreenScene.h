#pragma once

// The whole bot with its real windows, and the practice network, in one simulated world. The operator's hands
// are mouse and keyboard events.

#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "surface/frmMain.h"
#include "surface/qt/Follow.h"
#include "surface/qt/QtWindows.h"

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

namespace halyard {

class ScreenScene : public ::testing::Test {
  protected:
    ScreenScene();
    ~ScreenScene() override { windows.Close(); }

    SimWorld world;
    SimPlatform service{world};
    SimPlatform machine{world};
    PracticeNetwork network{service, {}};
    QtWindows windows;
    frmMain bot{machine, &windows};
    PracticeLevers& people = network.Levers();

    /// The window of this name that is on the screen, or null.
    static QWidget* Window(const char* name);
    /// A widget of a window; the test ends when there is none.
    template <typename T>
    static T& Find(const char* name, const char* window = "frmMain") {
        auto* place = Window(window);
        auto* found = place ? place->findChild<T*>(name) : nullptr;
        EXPECT_TRUE(found) << name << " in " << window;
        if (!found) std::abort();
        return *found;
    }
    static void Press(const char* button, const char* window = "frmMain");
    /// Types over what stands in the box.
    static void Type(const char* box, const char* text, const char* window = "frmMain");
    static void Enter(const char* box, const char* window = "frmMain");
    static void ClickLine(const char* list, int row, Qt::MouseButton button = Qt::LeftButton,
                          const char* window = "frmMain");
    static void Choose(const char* entry, const char* window = "frmMain");
    static QString Line(const char* list, int row, const char* window = "frmMain");
    static void Settle();

    void SignOn();
    void Join(const char* room);
    void MakeOp(const char* name);
    void OpenConsole();
    void Wait(int seconds) { world.RunFor(seconds * 1000), Settle(); }
};

} // namespace halyard
