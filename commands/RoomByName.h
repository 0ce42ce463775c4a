#pragma once

// How "chat:command" finds its room.

#include <memory>
#include <string>

namespace halyard {

class Chats;
class TillerSock;

/// The first room of this name, whatever its case and blanks; null when there is none.
std::shared_ptr<Chats> RoomByName(const TillerSock& control, const std::string& strChatName);

} // namespace halyard
