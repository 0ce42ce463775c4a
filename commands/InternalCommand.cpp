// The internal command box of the main window.

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"

namespace halyard {

void CommandEngine::InternalCommand(const std::string& text) {
    auto trimmed = Trim(text);
    if (trimmed.empty()) return;
    auto parts = Split(trimmed, ":", 2);
    if (parts.size() != 2)
        return context.boxes.Error("Error",
                                   "Error validating command. Please enter a command in the following "
                                   "format: chat:command");
    auto room = RoomByName(context.control, parts[0]);
    if (!room) return context.boxes.Error("Error", "Error: Chat given was not found!");
    HandleLine(room->ChatIndex, "[Manual Command]", parts[1], false);
}

} // namespace halyard
