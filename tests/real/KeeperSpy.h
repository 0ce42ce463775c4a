#pragma once

// Counts what a real platform keeps alive. A test makes one.

#include "platform/qt/QtPlatform.h"

#include <QCoreApplication>
#include <QEvent>

namespace halyard {

/// Finds the object under which a platform keeps its connections, by what a new timer is put under.
class KeeperSpy : public QObject {
  public:
    explicit KeeperSpy(QtPlatform& real) {
        QCoreApplication::instance()->installEventFilter(this);
        real.NewTimer();
        QCoreApplication::instance()->removeEventFilter(this);
    }
    /// How many objects stand.
    qsizetype Objects() const { return keeper ? keeper->children().size() : -1; }
    bool eventFilter(QObject* parent, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded && !keeper) keeper = parent;
        return false;
    }

  private:
    QObject* keeper = nullptr;
};

} // namespace halyard
