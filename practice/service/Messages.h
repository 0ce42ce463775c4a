#pragma once

// What people ask of each other outside the rooms: instant messages and user information.

#include "practice/Wire.h"
#include "practice/World.h"

#include <string>
#include <string_view>

namespace halyard {

/// An instant message (0004 0006): goes on to the person on line as 0004 0007, or comes back as error 0004.
bool HandleMessage(World& world, ClientConnection& connection, const Snac& snac);
/// A question about a person (0002 0005 and 0002 0015): answered with 0002 0006, or error 0004.
bool HandleUserInfo(World& world, ClientConnection& connection, const Snac& snac);
/// A plain message from anyone to a person on line; without effect when there is no such client.
void DeliverText(World& world, const std::string& from, const std::string& to, std::string_view text);

} // namespace halyard
