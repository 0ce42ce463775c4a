#include "platform/sim/SimWorld.h"

namespace halyard {

void SimWorld::RunFor(std::int64_t milliseconds) {
    auto end = Now() + milliseconds;
    while (clock.Due(end)) Step();
    clock.MoveTo(end);
}

bool SimWorld::RunUntil(const std::function<bool()>& reached, std::int64_t limit) {
    auto end = Now() + limit;
    while (!reached()) {
        if (!clock.Due(end)) return clock.MoveTo(end), false;
        Step();
    }
    return true;
}

void SimWorld::Step() {
    clock.RunNext();
    if (afterEvent) afterEvent();
}

} // namespace halyard
