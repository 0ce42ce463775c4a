#pragma once

// What a text is refused for before the library reads it, because by some of it the library would end the
// program.

#include "bridge/Toml.h"

#include <optional>
#include <string_view>

namespace halyard {

/// The first of these, nothing when there is none: a text of several lines; outside texts and comments, a
/// character that no key, number or bracket has, the colon of times among them; a quotation mark in a number,
/// which the library reads on behind it as if there were no text; a key of more than 128 parts, of which the
/// library makes as many tables, one inside the other, and drops them by as many calls.
std::optional<TomlMistake> RefusedToml(std::string_view utf8);

} // namespace halyard
