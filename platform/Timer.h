#pragma once

#include <functional>

namespace halyard {

/// A repeating timer of the message loop. It fires every interval until it is disabled.
/// A handler may change or destroy its own timer.
class Timer {
  public:
    virtual ~Timer() = default;

    std::function<void()> onTick;

    /// Milliseconds, at least 1. On an enabled timer the new interval starts from now.
    virtual void SetInterval(int milliseconds) = 0;
    virtual int Interval() const = 0;
    /// Enabling a disabled timer starts a full interval; enabling an enabled one changes nothing.
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Enabled() const = 0;
};

} // namespace halyard
