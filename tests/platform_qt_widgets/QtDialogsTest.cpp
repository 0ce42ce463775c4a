#include "platform/qt/widgets/QtDialogs.h"

#include "platform/qt/widgets/QtDesktop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace halyard {
namespace {

/// Runs `answer` on the box that opens next.
template <typename Box, typename Answer>
void OnNextBox(Answer answer) {
    QTimer::singleShot(0, qApp, [answer] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        if (box)
            answer(*box);
        else
            OnNextBox<Box>(answer);
    });
}

TEST(QtDialogs, ShowsStrangersTextAsItStands) {
    QtDialogs dialogs;
    std::string text = "<b>caf\xe9</b> & <img src=x>";
    int shown = 0;
    for (bool error : {false, true}) {
        OnNextBox<QMessageBox>([&shown, error](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("<b>café</b> & <img src=x>"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), error ? QMessageBox::Warning : QMessageBox::NoIcon);
            ++shown;
            box.accept();
        });
        error ? dialogs.Error("Error", text) : dialogs.Note("Note", text);
    }
    EXPECT_EQ(shown, 2);
}

TEST(QtDialogs, TakesOnlyYesForYes) {
    QtDialogs dialogs;
    for (auto button : {QMessageBox::Yes, QMessageBox::No, QMessageBox::NoButton}) {
        OnNextBox<QMessageBox>([button](QMessageBox& box) {
            if (auto* found = box.button(button))
                found->click();
            else
                box.reject();
        });
        EXPECT_EQ(dialogs.YesNo("Reset", "Sure?"), button == QMessageBox::Yes);
    }
}

TEST(QtDialogs, TellsWhichAnswerWasChosen) {
    QtDialogs dialogs;
    for (const int answer : {0, 1, -1}) {
        OnNextBox<QMessageBox>([answer](QMessageBox& box) {
            for (auto* button : box.buttons())
                if (button->text() == QString::number(answer)) return button->click();
            box.reject();
        });
        const auto chosen = dialogs.Choose("Which?", "One of these", {"0", "1"});
        EXPECT_EQ(chosen ? static_cast<int>(*chosen) : -1, answer);
    }
}

TEST(QtDialogs, GivesTheChosenPathOrNothing) {
    QtDialogs dialogs;
    QTemporaryDir folder;
    auto path = folder.path().toStdString();
    std::string filter = "Settings (*.cfg)|*.cfg|";
    OnNextBox<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.nameFilters(), QStringList{QStringLiteral("Settings (*.cfg)")});
        box.selectFile(QStringLiteral("mine"));
        QMetaObject::invokeMethod(&box, "accept");
    });
    EXPECT_EQ(dialogs.Save("Save settings", filter, path), path + "/mine.cfg");
    OnNextBox<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.nameFilters(), QStringList{QStringLiteral("Any [All files] (*)")}); // "*.*" hides "any"
        box.reject();
    });
    EXPECT_EQ(dialogs.Open("Load settings", "Any [All files] (*.*)|*.*|", path), std::nullopt);
    OnNextBox<QFontDialog>([](QFontDialog& box) { box.reject(); });
    EXPECT_EQ(dialogs.Font("Font", "Arial"), std::nullopt);
}

TEST(QtDesktop, EndsTheLoopAfterTheRunningHandlerAndNeedsNoTray) {
    QtDesktop desktop;
    bool returned = false;
    QTimer::singleShot(0, qApp, [&] {
        desktop.Quit();
        returned = true;
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(returned);
    desktop.RemoveTrayIcon();
    for (const auto* tip : {"Halyard", "again"}) {
        desktop.SetTrayTip("before");
        desktop.AddTrayIcon(tip);
        desktop.RemoveTrayIcon();
    }
}

} // namespace
} // namespace halyard
