#pragma once

// Lets something that is often said to be due be done at most four times a second, and not at all while
// nothing is.

#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <utility>

namespace halyard {

class Refresher {
  public:
    static constexpr int Pause = 250; ///< ms

    Refresher(Platform& platform, std::function<void()> act)
        : timer(platform.NewTimer()), act(std::move(act)) {
        timer->SetInterval(Pause);
        timer->onTick = [this] {
            timer->SetEnabled(false);
            this->act();
        };
    }
    /// It is done within a pause from now.
    void Due() {
        if (!timer->Enabled()) timer->SetEnabled(true);
    }
    void Drop() { timer->SetEnabled(false); }

  private:
    std::unique_ptr<Timer> timer;
    std::function<void()> act;
};

} // namespace halyard
