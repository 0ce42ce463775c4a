#include "platform/qt/QtTimerAdapter.h"

#include <algorithm>

namespace halyard {

QtTimerAdapter::QtTimerAdapter(QObject* parent) : timer(new QTimer(parent)) {
    // Coarse timers may fire early, and a message that leaves early counts against the rate limit.
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(1);
    // A repeating timer of Qt's shortens the interval after a late tick. Each tick starts a whole one
    // instead.
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [this] { Tick(); });
}

void QtTimerAdapter::SetInterval(int milliseconds) { timer->setInterval(std::max(milliseconds, 1)); }

void QtTimerAdapter::SetEnabled(bool wanted) {
    if (wanted == enabled) return;
    enabled = wanted;
    if (enabled)
        timer->start();
    else
        timer->stop();
}

void QtTimerAdapter::Tick() {
    timer->start();
    if (auto handler = onTick) handler();
}

} // namespace halyard
