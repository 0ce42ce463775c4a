#pragma once

// Text inside is Windows-1252, one character a byte; sources and the desktop speak UTF-8.

#include <string>
#include <string_view>

namespace halyard {

/// UTF-8 to Windows-1252; a character that has no place there, and every broken byte, becomes "?".
std::string FromUtf8(std::string_view utf8);

/// UTF-16, the high byte first, to Windows-1252; a character that has no place there, and half a one, becomes
/// "?". A mark of the byte order at the head is left out, and one that says low byte first is obeyed.
std::string FromUtf16(std::string_view utf16);

/// Windows-1252 to UTF-8. The five unassigned bytes become the control characters of the same number.
std::string ToUtf8(std::string_view text);

} // namespace halyard
