#pragma once

// A window on one room: what is said, who is there, and the means to speak as the bot and to act on a person
// with a click. Consoles holds all that are open.

#include "base/Collection.h"
#include "platform/Controls.h"
#include "surface/SurfaceContext.h"

#include <cstdint>
#include <string>

namespace halyard {

class Consoles;

class frmConsole {
  public:
    frmConsole(const SurfaceContext& context, Consoles& owner);

    std::string ChatName;
    std::int16_t ChatIndex = 0; ///< may no longer name a room
    Collection<std::string> IgnoredUsers;

    Form form{"frmConsole", "Chat Console"};
    Label lblChatName{"lblChatName", "Chat Room: [None]"};
    Label lblPeopleHere{"lblPeopleHere", "People Here: 0"};
    ListBox lstPeopleHere{"lstPeopleHere"};
    TextBox txtChatMsg{"txtChatMsg"}; ///< read only
    TextBox txtSend{"txtSend", "", 2200};
    Button cmdBan{"cmdBan", "Ban"};
    Button cmdIgnore{"cmdIgnore", "Ignore"};
    Button cmdUnignore{"cmdUnignore", "Unignore"};
    Button cmdClearText{"cmdClearText", "Clear Chat Window"};
    Button cmdClose{"cmdClose", "Close Chat"};
    Menu mnuCommands{"mnuCommands", "Commands"};
    Menu mnuBan{"mnuBan", "Ban User"};
    Menu mnuIgnore{"mnuIgnore", "Ignore User"};
    Menu mnuUnignore{"mnuUnignore", "Unignore User"};
    Menu mnuImmune{"mnuImmune", "Immune User"};
    Menu mnuUnimm{"mnuUnimm", "Unimm User"};

    /// Fills the window from the room once the two fields name it.
    void CreateIface();
    void AddConsoleUser(const std::string& strUser);
    void RemoveConsoleUser(const std::string& strUser);
    void IncomingMessage(const std::string& strUser, const std::string& strMessage);
    /// Closes the window; nothing of it may be used afterwards.
    void Form_Unload();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(lblChatName), visit(lblPeopleHere), visit(lstPeopleHere), visit(txtChatMsg);
        visit(txtSend), visit(cmdBan), visit(cmdIgnore), visit(cmdUnignore), visit(cmdClearText);
        visit(cmdClose);
    }

  private:
    /// A log of `limit` characters or more is cleared first.
    void Log(const std::string& line, std::size_t limit);
    void BindPeople();
    void Ban();
    void Ignore();
    void Unignore();
    void ChangeImmune(bool immune);
    void SendKey(int key);
    void CloseClicked();
    /// Not once the room was left, even if another room has its socket slot by now.
    bool OfItsRoom() const;
    void ShowPeopleCount();

    const SurfaceContext& context;
    Consoles& owner;
};

} // namespace halyard
