#include "commands/RoomByName.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"

namespace halyard {

std::shared_ptr<Chats> RoomByName(const TillerSock& control, const std::string& normalised) {
    for (const auto& room : control.Chat)
        if (NormalizeName(room->ChatName) == normalised) return room;
    return nullptr;
}

} // namespace halyard
