#pragma once

// How far an address reaches, and where a redirect leads that cannot mean what it says.

#include <string>
#include <string_view>

namespace halyard {

enum class Reach {
    Name,        ///< no address but a name, which is looked up
    Unspecified, ///< 0.0.0.0/8 and ::, or no address at all
    Loopback,    ///< 127/8, ::1 and "localhost"
    Private,     ///< RFC 1918, 169.254/16, fc00::/7, fe80::/10
    Public
};

/// Of an IPv4 address with dots or an IPv6 address, with or without brackets or a zone. IPv4 inside IPv6
/// (::ffff:a.b.c.d) counts as what it holds.
Reach ReachOf(std::string_view address);

/// The host to connect to when `redirect` is told by a service that is reached at `peer`: the peer's own
/// address when the redirect leads nowhere or to this machine and the peer is elsewhere, or when it is
/// private and the peer is public; else the redirect.
std::string ReachableHost(const std::string& redirect, const std::string& peer);

} // namespace halyard
