#pragma once

// How a line of a file reaches an option. Shared by the reader of settings files and the import of foreign
// ones. A value that an option doesn't take leaves it as it was.

#include "state/OptionTable.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace halyard {

struct SettingsTarget;

/// Looks for the file and puts every option back to its default. The text of the file; nothing, and a box,
/// when there is none. SettingsLoading is true from here on.
std::optional<std::string> BeginReading(const SettingsTarget& target, const std::string& path);

/// Tells who wants to know that the settings are now those of this file.
void TellRead(const SettingsTarget& target, const std::string& path);

/// The rows of the option table by key.
using OptionsByKey = std::unordered_map<std::string_view, const Option*>;
OptionsByKey IndexOptions();

/// `line` is the whole line, `value` what stands behind its first colon.
void ReadOption(SettingsReading& reading, const Option& option, std::string_view line,
                const std::string& value);

/// True for a name that lists take: 2 to 100 characters, and not blanks alone.
bool IsListName(std::string_view name);

} // namespace halyard
