#pragma once

#include <string>
#include <string_view>

namespace halyard {

/// The MD5 of `bytes` (RFC 1321), the raw 16 bytes, computed by the system's crypto library.
/// Empty when that library refuses MD5.
std::string Md5(std::string_view bytes);

} // namespace halyard
