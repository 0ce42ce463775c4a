#include "surface/look/Menus.h"

namespace halyard {

Menus::Menus() {
    mnuFile.Items = {&mnuNewSettings,  &mnuLoadSettings, &mnuLoadGannetSettings,
                     &mnuSaveSettings, &mnuSpaceMain,    &mnuExit};
    for (auto& panel : mnuPanels) mnuPanel.Items.push_back(&panel);
    for (auto* entry : {&mnuSpacePanel, &mnuCcoms, &mnuUniPerms, &mnuLocks, &mnuIMComs, &mnuChatsends})
        mnuPanel.Items.push_back(entry);
    mnuQuickLinks.Items = {&mnuLoginSN};
    mnuHelp.Items = {&mnuHelpFile, &mnuAbout};
    mnuEjectListChats.Items = {&mnuRemoveEjectedList};
    mnuEjectList.Items = {&mnuUnbanUser};
    mnuChats.Items = {&mnuOpenConsole};
    mnuSystemTray.Items = {&mnuShow, &mnuExit2};
}

} // namespace halyard
