#pragma once

// Whether what is told just now was asked for.

#include "base/Cause.h"

namespace halyard {

/// By the operator's hand, however far around.
bool IsOrderedByHand(const Telling& telling);
/// The same, or by an op's command.
bool IsOrdered(const Telling& telling);

} // namespace halyard
