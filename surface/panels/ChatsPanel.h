#pragma once

// The panel that joins, leaves and closes rooms, lists them and shows one of them. The main window owns the
// one.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <cstdint>

namespace halyard {

class ConnectionPanel;

class ChatsPanel {
  public:
    ChatsPanel(const SurfaceContext& context, const ConnectionPanel& connection);

    std::deque<Frame> FrameMisc = Numbered<Frame>(
        "FrameMisc", 3, {"Chat Control", "Chats", "Chat Status", "Chat Data", "Chat Options"});
    /// Captions of the three boxes, then, from number 8 on, those of the rows of the room's data.
    std::deque<Label> lblMisc = Numbered<Label>(
        "lblMisc", 4,
        {"Chat Name", "Exchange", "Instance", "Rooms",
         "Chat Server IP:", "Exchange #:", "Instance #:", "Chat Cookie:", "People Here:", "Owner:", "Bans:",
         "Max Message Length:", "Max Participants:", "Detail Level:", "Chat Index:"});
    std::deque<Label> lblChatData =
        Numbered<Label>("lblChatData", 0,
                        {"[None]", "[None]", "[None]", "[None]", "[None]", "[None]", "[None]", "[None]",
                         "[None]", "[None]", "[None]"});
    ListBox lstChats{"lstChats"};
    Label lblChatCount{"lblChatCount", "Chats you are in: 0"};
    Label lblChatStatus{"lblChatStatus", "Not in a chat."};
    Button cmdJoinChat{"cmdJoinChat", "Join Chat"};
    Button cmdLeaveChat{"cmdLeaveChat", "Leave Chat"};
    Button cmdCloseChat{"cmdCloseChat", "Close Chat"};

    /// Lists a room, but no more often than rooms of its name stand: a service may repeat itself.
    void AddRoom(const std::string& strChatName);
    /// Takes a line of the room off, beyond those of its name that still stand on other sockets than
    /// `intChatIndex`.
    void RemoveRoom(const std::string& strChatName, std::int16_t intChatIndex);
    void ClearRooms();
    /// Shows no room's data any more when the shown room is left. True when that was so.
    bool ForgetLostData();
    /// Takes the lines of rooms away that the control no longer has: a reset tells nothing of its rooms.
    void DropLostRooms();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& label : lblMisc) visit(label);
        for (auto& label : lblChatData) visit(label);
        visit(lstChats), visit(lblChatCount), visit(lblChatStatus);
        visit(cmdJoinChat), visit(cmdLeaveChat), visit(cmdCloseChat);
    }

  private:
    void JoinClicked();
    void LeaveClicked();
    void CloseClicked();
    void RoomClicked();
    bool Ready(const char* noName, const char* noExchange) const;
    void ShowStatus(const char* doing);
    void ShowCount();
    int LinesOf(const std::string& strChatName) const;
    /// Fills the rows from the room at this position of Chat.
    void ShowChatData(std::int16_t position);

    std::int16_t shownRoom = 0; ///< whose data are shown: its socket slot, 0 for none
    const SurfaceContext& context;
    const ConnectionPanel& connection;
};

} // namespace halyard
