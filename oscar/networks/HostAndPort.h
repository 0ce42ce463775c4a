#pragma once

// Where a service is, read so that addresses of both families are understood.

#include <cstdint>
#include <string>

namespace halyard {

/// Reads "name:port", "[2001:db8::1]:port", and each without a port; more than one ":" outside brackets is an
/// IPv6 address without a port. `host` comes without brackets, and takes the text as it stands where the
/// brackets don't close. `port` stays as it was where none, or no number, is named.
void SplitHostAndPort(const std::string& text, std::string& host, std::int32_t& port);

/// True for an IPv4 or IPv6 address, with or without brackets; a name such as "localhost" is none.
bool IsAddress(const std::string& host);

} // namespace halyard
