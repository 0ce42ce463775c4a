#pragma once

// Runs the message loop for the tests of the real platform.

#include "platform/qt/QtPlatform.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace halyard {

/// Turns the loop until `done` holds. False when it never did; the guard only bounds a failing run.
template <typename Condition>
bool RunUntil(Condition done) {
    bool gaveUp = false;
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, &guard, [&] { gaveUp = true; });
    guard.start(30000);
    while (!done() && !gaveUp) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return !gaveUp;
}

/// Turns the loop over all that has happened by now.
inline void RunPending() {
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
}

} // namespace halyard
