#pragma once

// The operator's hand on a control: the one way by which the drawing of a window, and whoever stands in for
// the operator, reaches one. What it does has the hand as its cause; a value that the program sets runs the
// same handlers without it.

#include "base/Cause.h"
#include "platform/Controls.h"

#include <utility>

namespace halyard {

/// Runs `act`, which presses, chooses or types at `control`.
template <typename Act>
void Hand(Telling& telling, const Control& control, Act&& act) {
    const CauseScope scope(telling, {.kind = CauseKind::Hand, .entry = control.Name});
    std::forward<Act>(act)();
}

} // namespace halyard
