#pragma once

#include <QCoreApplication>

namespace halyard {

/// Ends the message loop, and every box's loop in it, once the running handler has returned. No window is
/// asked.
inline void QuitLater() {
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace halyard
