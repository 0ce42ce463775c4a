#pragma once

// Family 0001, alike on every connection: cookies, versions, rates, redirects to further services; and how a
// person comes on line and goes.

#include "practice/Wire.h"
#include "practice/World.h"

#include <string>

namespace halyard {

/// A cookie was presented: the connection becomes what the cookie stands for, and is told its families (0001
/// 0003). False for an unknown cookie.
bool BeginService(World& world, ClientConnection& connection, const std::string& cookie);
/// Family 0001.
bool HandleGeneric(World& world, ClientConnection& connection, const Snac& snac);
/// A channel 4 frame came: on the main connection it signs the person off everywhere.
void SignOffPerson(World& world, ClientConnection& connection);
/// The main connection of a person is gone.
void SignedOff(World& world, ClientConnection& connection);
/// Takes a person of the script, who has no connection, out of every room and off line.
void SignOffScripted(World& world, const std::string& name);
/// What is told to a connection whose name signed on elsewhere: a reason, and a page about it.
std::string ElsewhereBody();
/// Ends every connection of a person but one.
void DismissOthers(World& world, const std::string& name, const ClientConnection* except);

} // namespace halyard
