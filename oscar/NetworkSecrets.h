#pragma once

// What a network's sign-on service expects of its clients: the salt of the hashed dialogue and the table of
// the roasted one. Both stand in one value, so that another network's can be chosen.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

struct NetworkSecrets {
    std::string salt;                      ///< 26 ASCII characters, or as many as the network has
    std::array<std::uint8_t, 16> roasting; ///< combined with the password byte by byte, over again after 16

    /// Exclusive-or of every byte with the table. Roasting twice gives the password back.
    std::string Roast(std::string_view strPassword) const;
    /// MD5 (RFC 1321) of the auth key, the raw MD5 of the password, and the salt.
    std::string Hash(std::string_view authKey, std::string_view strPassword) const;
};

/// The values of the network that Halyard signs on to.
NetworkSecrets DefaultSecrets();

} // namespace halyard
