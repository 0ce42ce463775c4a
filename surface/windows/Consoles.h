#pragma once

// The open consoles, one a room. The main window owns the one collection.

#include "base/Collection.h"
#include "surface/SurfaceContext.h"
#include "surface/windows/frmConsole.h"

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class Consoles {
  public:
    explicit Consoles(const SurfaceContext& context) : context(context) {}

    Collection<std::shared_ptr<frmConsole>> ChatConsoles;

    /// Opens the console of the room of this name, or brings the one that is there to the front. Nothing
    /// happens without such a room.
    void Open(const std::string& strChatName);
    /// Closes the first console of a room of this name.
    void DestroyChatConsole(const std::string& strChatName);

    /// The console of the room on this socket slot, or null. A console that outlived its room is not taken
    /// for that of the room which has its slot now.
    std::shared_ptr<frmConsole> Of(std::int16_t intChatIndex) const;
    /// The first console of a room of this name, or null.
    std::shared_ptr<frmConsole> Named(const std::string& strChatName) const;

    /// The room was joined: its console, if one has stayed open, works again.
    void RoomJoined(const std::string& strChatName, std::int16_t intChatIndex);
    void RoomLeft(const std::string& strChatName, std::int16_t intChatIndex);
    /// Rooms that end with the main connection end without an event: says it in the consoles of those.
    void DropLostRooms();

  private:
    static void TellLeft(frmConsole& console);

    const SurfaceContext& context;
};

} // namespace halyard
