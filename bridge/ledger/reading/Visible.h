#pragma once

// Texts of strangers as a terminal, a table or a list may show them.

#include <string>
#include <string_view>

namespace halyard {

/// `utf8` on one line and without a character that commands or turns what is shown: control characters as
/// "\x0A", those that change the direction of writing, break lines or can't be seen as "\u202E", a backslash
/// as it is. Bytes that are no UTF-8 become U+FFFD. Always valid UTF-8.
std::string Visible(std::string_view utf8);

} // namespace halyard
