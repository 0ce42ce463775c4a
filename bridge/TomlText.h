#pragma once

// Writes the lines of a TOML file. Texts are Windows-1252.

#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// A text in quotes, as TOML has it. Characters that it forbids, and those that no font shows, are written by
/// their numbers.
std::string TomlQuoted(std::string_view text);
/// A list of such texts.
std::string TomlTexts(const std::vector<std::string>& texts);
/// "key = value" and the end of the line.
std::string TomlLine(std::string_view key, std::string_view value);
inline const char* TomlSwitch(bool value) { return value ? "true" : "false"; }

} // namespace halyard
