#pragma once

// The file of who is banned from which room, so that bans can be lifted in a later run.

#include <string>

namespace halyard {

class Label;
class ListBox;
class Platform;
class TillerSock;

/// The controls of the panel that shows eject lists.
struct EjectPanel {
    ListBox& lstEjected;
    Label& lblBanCount;
    ListBox& lstEjectListChats;
    Label& lblEjectListChat;
};

/// One line a ban. With `fileName` empty, `folderOrPath` is the whole path. False when nothing was written. A
/// room name with a colon is written as it is, on purpose, although the line reads differently then.
bool WriteEjectLists(Platform& platform, TillerSock& control, const std::string& folderOrPath,
                     const std::string& fileName = {});

/// Replaces all eject lists by those of the file and binds them to joined rooms of the same name and
/// exchange. Silent when there is no file; another program's file is told in a box and changes nothing.
void ReadEjectLists(Platform& platform, TillerSock& control, const EjectPanel& panel,
                    const std::string& folderOrPath, const std::string& fileName = {});

} // namespace halyard
