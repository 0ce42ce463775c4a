#pragma once

// A network that Halyard can sign on to, as a value: where it is, what its sign-on expects, and the ways in
// which its services differ from what is laid down.

#include "oscar/Departures.h"
#include "oscar/NetworkSecrets.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

struct Network {
    std::string name;               ///< as the operator chooses it; case and blanks don't count
    std::vector<std::string> hosts; ///< offered after those that are laid down
    std::int32_t port = 5190;
    NetworkSecrets secrets = DefaultSecrets();
    Ways ways;
    /// SHA-256 of the one certificate that is taken over TLS: 64 hex digits in small letters, or empty for
    /// none.
    std::string pin = {};
};

/// The network of everybody who chose none.
inline constexpr const char* LaidDownNetwork = "Laid down";

/// "Laid down", "Classic salt" and "Open server", in this order.
std::vector<Network> BuiltInNetworks();

/// The network of this name; null when there is none.
const Network* FindNetwork(const std::vector<Network>& networks, std::string_view name);

} // namespace halyard
