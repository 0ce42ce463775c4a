#pragma once

#include "practice/World.h"

#include <string_view>

namespace halyard {

/// Acts on a whole frame. False when it makes no sense and its connection should end.
bool DispatchFrame(World& world, ClientConnection& connection, int channel, std::string_view body);

} // namespace halyard
