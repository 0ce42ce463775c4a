#include "surface/windows/Consoles.h"

#include "base/Text.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "surface/WindowHost.h"

namespace halyard {

std::shared_ptr<frmConsole> Consoles::Named(const std::string& strChatName) const {
    for (const auto& console : ChatConsoles)
        if (SameName(console->ChatName, strChatName)) return console;
    return nullptr;
}

std::shared_ptr<frmConsole> Consoles::Of(std::int16_t intChatIndex) const {
    const auto room = context.control.Room(intChatIndex);
    if (!room) return nullptr;
    auto console = Named(room->ChatName);
    return console && console->ChatIndex == intChatIndex ? console : nullptr;
}

void Consoles::Open(const std::string& strChatName) {
    if (auto console = Named(strChatName)) {
        context.platform.Boxes().Note("Note", "This chat console already exists! Focus has been set to it.");
        context.windows.Focus(console->form);
        return;
    }
    const auto room = RoomByName(context.control, strChatName);
    if (!room) return;
    auto console = std::make_shared<frmConsole>(context, *this);
    console->ChatName = room->ChatName;
    console->ChatIndex = room->ChatIndex;
    ChatConsoles.Add(console);
    console->CreateIface();
    context.windows.ShowConsole(*console);
}

void Consoles::DestroyChatConsole(const std::string& strChatName) {
    for (std::ptrdiff_t position = 1; const auto& entry : ChatConsoles) {
        if (SameName(entry->ChatName, strChatName)) {
            const auto console = entry; // lives until its window has let go
            ChatConsoles.Remove(position);
            context.windows.Unload(console->form);
            return;
        }
        ++position;
    }
}

void Consoles::RoomJoined(const std::string& strChatName, std::int16_t intChatIndex) {
    const auto console = Named(strChatName);
    if (!console) return;
    if (console->ChatIndex != intChatIndex && Of(console->ChatIndex) == console)
        return; // a room of the same name on another exchange has it
    console->ChatIndex = intChatIndex;
    console->IncomingMessage("OnlineHost", "** You have joined chat '" + strChatName + "'! **");
    console->txtSend.SetEnabled(true);
    console->CreateIface();
}

void Consoles::RoomLeft(const std::string& strChatName, std::int16_t intChatIndex) {
    const auto console = Named(strChatName);
    if (console && console->ChatIndex == intChatIndex) TellLeft(*console);
}

void Consoles::DropLostRooms() {
    for (const auto& console : ChatConsoles)
        if (console->txtSend.Enabled() && Of(console->ChatIndex) != console) TellLeft(*console);
}

void Consoles::TellLeft(frmConsole& console) {
    console.IncomingMessage("OnlineHost", "** You have left the room. **");
    console.txtSend.SetEnabled(false);
}

} // namespace halyard
