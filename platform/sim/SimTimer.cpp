#include "platform/sim/SimTimer.h"

#include <algorithm>

namespace halyard {

void SimTimer::SetInterval(int milliseconds) {
    interval = std::max(milliseconds, 1);
    if (Enabled()) Start();
}

void SimTimer::SetEnabled(bool enabled) {
    if (enabled == Enabled()) return;
    if (enabled)
        Start();
    else
        clock.Cancel(next);
}

void SimTimer::Start() {
    clock.Cancel(next);
    next = clock.In(interval, [this] { Tick(); });
}

void SimTimer::Tick() {
    Start();
    if (++ticks.had == ticks.lost) return;
    if (auto handler = onTick) handler(); // a copy: the handler may destroy this timer
}

} // namespace halyard
