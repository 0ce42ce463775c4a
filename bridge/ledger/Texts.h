#pragma once

// Texts of the desk on their way into the ledger.

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

/// How much of a line, a reason or a note is kept, in characters.
inline constexpr std::size_t LongestText = 1000;

/// Windows-1252 to UTF-8 as it is kept: control characters stay, NUL becomes U+2400, which no text of the
/// desk can hold, so that nothing is lost.
std::string KeptText(std::string_view text);
/// The same for an entry of a list, which stands with others in one text: a line break becomes U+240A.
std::string KeptEntry(std::string_view entry);

/// What stands in the place of a forgotten person's name. No name of the desk begins like it.
std::string StoneOf(std::int64_t person);

} // namespace halyard
