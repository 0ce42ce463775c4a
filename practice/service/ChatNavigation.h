#pragma once

#include "practice/Wire.h"
#include "practice/World.h"

namespace halyard {

/// Family 000D: the rights of the navigation, exchanges, and rooms found or created. All are answered by 000D
/// 0009.
bool HandleNavigation(World& world, ClientConnection& connection, const Snac& snac);

} // namespace halyard
