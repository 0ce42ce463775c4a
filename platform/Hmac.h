#pragma once

#include <string>
#include <string_view>

namespace halyard {

/// The HMAC of `bytes` with SHA-256 (RFC 2104), the raw 32 bytes, computed by the system's crypto library.
/// Empty when that library refuses.
std::string HmacSha256(std::string_view key, std::string_view bytes);

} // namespace halyard
