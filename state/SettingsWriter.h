#pragma once

// Writes every option to a settings file, in the order of the option table. The password is no option of the
// table.

#include <string>

namespace halyard {

class Options;
class Platform;

/// The file's third line, which a reader wants to find.
inline constexpr const char* SettingsVersion = "Version: 2.0 (Beta 1.0)";

/// The file's text.
std::string SettingsText(Options& options);
/// With `fileName` empty, `folderOrPath` is the whole path. False when nothing was written.
bool WriteSettings(Platform& platform, Options& options, const std::string& folderOrPath,
                   const std::string& fileName = {});

} // namespace halyard
