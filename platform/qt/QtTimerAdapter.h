#pragma once

// The timer of Qt's message loop.

#include "platform/Timer.h"
#include "platform/qt/Kept.h"

#include <QTimer>

namespace halyard {

class QtTimerAdapter : public Timer {
  public:
    explicit QtTimerAdapter(QObject* parent);

    void SetInterval(int milliseconds) override;
    int Interval() const override { return timer->interval(); }
    void SetEnabled(bool enabled) override;
    bool Enabled() const override { return enabled; }

  private:
    void Tick();

    Kept<QTimer> timer;
    bool enabled = false;
};

} // namespace halyard
