#include "commands/RoomByName.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"

namespace halyard {

std::shared_ptr<Chats> RoomByName(const TillerSock& control, const std::string& strChatName) {
    for (const auto& room : control.Chat)
        if (SameName(room->ChatName, strChatName)) return room;
    return nullptr;
}

} // namespace halyard
