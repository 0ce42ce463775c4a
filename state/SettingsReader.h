#pragma once

// Reads settings files into the running program: its own, and those of another bot that people come from.
// Both begin by putting every option back to its default, so that what a file doesn't name is at its default
// afterwards.

#include <functional>
#include <string>

namespace halyard {

class ListWorkers;
class Options;
class Platform;

/// What a reader works on. `openMenu` slides the menu panel in.
struct SettingsTarget {
    Platform& platform;
    Options& options;
    ListWorkers& lists;
    std::function<void()> openMenu;
};

/// With `fileName` empty, `folderOrPath` is the whole path. A file that isn't there, or is of another
/// version, is told in a box; with another version the settings are at their defaults by then and ChatSends
/// is empty.
void ReadSettings(const SettingsTarget& target, const std::string& folderOrPath,
                  const std::string& fileName = {});

/// The same for the settings of Gannet Elite, each of whose lines is wrapped in one character at each end.
/// Nothing tells such a file from any other text: only lines that happen to match a key count.
void ImportForeignSettings(const SettingsTarget& target, const std::string& folderOrPath,
                           const std::string& fileName = {});

} // namespace halyard
