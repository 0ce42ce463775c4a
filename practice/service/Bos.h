#pragma once

#include "practice/Wire.h"
#include "practice/World.h"

namespace halyard {

/// What a client asks on its main connection besides family 0001, messages and user information: rights, the
/// server-stored list (always empty), the profile.
bool HandleBos(World& world, ClientConnection& connection, const Snac& snac);

} // namespace halyard
