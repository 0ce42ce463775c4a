#pragma once

// The pop-up menus of the main window. The main window owns the one set and says what each entry does.

#include "platform/Controls.h"

#include <array>

namespace halyard {

class Menus {
  public:
    Menus();

    Menu mnuFile{"mnuFile", "File"};
    Menu mnuNewSettings{"mnuNewSettings", "New Settings"};
    Menu mnuLoadSettings{"mnuLoadSettings", "Load Settings"};
    Menu mnuLoadGannetSettings{"mnuLoadGannetSettings", "Load Gannet Elite Settings"};
    Menu mnuSaveSettings{"mnuSaveSettings", "Save Settings"};
    Menu mnuSpaceMain{"mnuSpaceMain", "-"};
    Menu mnuExit{"mnuExit", "Exit"};

    Menu mnuPanel{"mnuPanel", "Panel"};
    /// By panel index.
    std::array<Menu, 7> mnuPanels{Menu("mnuConnectionPanel", "Connection"),
                                  Menu("mnuChatsPanel", "Chats"),
                                  Menu("mnuOpImmPanel", "Ops/Immunes"),
                                  Menu("mnuAutoBanPanel", "Autobans/Autowords"),
                                  Menu("mnuEjectPanel", "Eject Lists"),
                                  Menu("mnuStatsPanel", "Stats"),
                                  Menu("mnuOtherPanel", "Other")};
    Menu mnuSpacePanel{"mnuSpacePanel", "-"};
    Menu mnuCcoms{"mnuCcoms", "Ccoms"};
    Menu mnuUniPerms{"mnuUniPerms", "Uni Perms"};
    Menu mnuLocks{"mnuLocks", "Locks"};
    Menu mnuIMComs{"mnuIMComs", "IMComs"};
    Menu mnuChatsends{"mnuChatsends", "Chatsends"};

    Menu mnuQuickLinks{"mnuQuickLinks", "Quick Links"};
    Menu mnuLoginSN{"mnuLoginSN", "Login Screenname"}; ///< does nothing, on purpose

    Menu mnuHelp{"mnuHelp", "Help"};
    Menu mnuHelpFile{"mnuHelpFile", "Help File"};
    Menu mnuAbout{"mnuAbout", "About"};

    Menu mnuEjectListChats{"mnuEjectListChats", "Eject List Chats"};
    Menu mnuRemoveEjectedList{"mnuRemoveEjectedList", "Remove Selected List"};
    Menu mnuEjectList{"mnuEjectList", "Eject List"};
    Menu mnuUnbanUser{"mnuUnbanUser", "Unban User"};
    Menu mnuChats{"mnuChats", "Chats"};
    Menu mnuOpenConsole{"mnuOpenConsole", "Open Chat Console"};
    Menu mnuSystemTray{"mnuSystemTray", "System Tray Options"};
    Menu mnuShow{"mnuShow", "Show"};
    Menu mnuExit2{"mnuExit2", "Exit"};
};

} // namespace halyard
