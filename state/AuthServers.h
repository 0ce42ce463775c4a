#pragma once

// The hosts offered for signing on. The first is where the practice network listens; the others are examples
// to overtype, in the domain reserved for home networks.

#include <array>

namespace halyard {

inline constexpr std::array<const char*, 17> AuthServers{
    "127.0.0.1",       "oscar.home.arpa",  "login.home.arpa", "auth.home.arpa",   "auth1.home.arpa",
    "auth2.home.arpa", "auth3.home.arpa",  "auth4.home.arpa", "bot.home.arpa",    "chat.home.arpa",
    "rooms.home.arpa", "server.home.arpa", "test.home.arpa",  "backup.home.arpa", "upstairs.home.arpa",
    "attic.home.arpa", "cellar.home.arpa",
};

} // namespace halyard
