#pragma once

// The two sign-on dialogues. Every name is welcome, and every password of one character or more
// unless the network has one of its own.

#include "practice/Wire.h"
#include "practice/World.h"

#include <string_view>

namespace halyard {

/// A client's channel 1 frame: its hello, its roasted sign-on, or the cookie that an earlier answer gave it.
bool HandleHello(World& world, ClientConnection& connection, std::string_view body);
/// Family 0017 before the sign-on: key request (0006) and hashed sign-on (0002).
bool HandleSignOn(World& world, ClientConnection& connection, const Snac& snac);

} // namespace halyard
