#pragma once

// What a person does at a drawn control. There is one desk in a program that draws, and one person before it.

#include "platform/Hand.h"

#include <utility>

namespace halyard {

/// Whose desk it is; null while none is drawn. QtWindows sets it.
inline Telling*& DrawnDesk() {
    static Telling* desk = nullptr;
    return desk;
}

template <typename Act>
void ByHand(const Control& control, Act&& act) {
    if (auto* desk = DrawnDesk())
        Hand(*desk, control, std::forward<Act>(act));
    else
        std::forward<Act>(act)();
}

} // namespace halyard
