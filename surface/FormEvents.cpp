// What the window's frame, its menus and the tray icon do.

#include "platform/Platform.h"
#include "surface/frmMain.h"
#include "surface/look/WebPages.h"

namespace halyard {

namespace {

// What the tray icon reports in the place of a position.
constexpr int LeftUp = 514;
constexpr int LeftDouble = 515;
constexpr int RightDown = 516;
constexpr int RightUp = 517;
constexpr int RightDouble = 518;

void OnRightButton(ListBox& list, const Menu& menu) {
    list.MouseDown = [&menu](int button) {
        if (button == RightButton) menu.Popup();
    };
}

} // namespace

void frmMain::Form_Unload() {
    tray.Remove();
    platform.DesktopShell().Quit();
}

void frmMain::Form_Resize() {
    if (form.State() == WindowState::Minimized && platform.DesktopShell().HasTray())
        return form.SetVisible(false); // without a tray nothing could bring it back
    if (form.State() != WindowState::Normal || form.Height() != RateLists::PlainHeight) return;
    rates.ListRatedRooms();
}

void frmMain::Form_MouseMove(int, int, int X, int) {
    if (X == RightDouble || (!form.Visible() && X == LeftDouble)) return ShowWindow();
    if (X == LeftUp || X == RightUp || (form.State() != WindowState::Normal && X == RightDown))
        menus.mnuSystemTray.Popup();
}

void frmMain::ShowWindow() {
    form.SetState(WindowState::Normal);
    form.SetVisible(true);
    context.windows.Show(form);
}

void frmMain::OpenHelp() {
    auto& files = platform.FileSystem();
    const auto path = files.OwnFolder() + files.Separator() + HelpFile;
    platform.DesktopShell().OpenPage(files.Exists(path) ? path : HelpPage);
}

void frmMain::BindMenus() {
    for (std::int16_t index = 0; auto& entry : menus.mnuPanels) {
        entry.Click = [this, index] { ShowPanel(index); };
        ++index;
    }
    menus.mnuCcoms.Click = [this] { ccomsWindow.Show(); };
    menus.mnuUniPerms.Click = [this] { uniPermsWindow.Show(); };
    menus.mnuLocks.Click = [this] { locksWindow.Show(); };
    menus.mnuIMComs.Click = [this] { imComsWindow.Show(); };
    menus.mnuChatsends.Click = [this] { chatSendsWindow.Show(); };
    menus.mnuAbout.Click = [this] { creditsWindow.Show(); };
    menus.mnuHelpFile.Click = [this] { OpenHelp(); };
    slide.lblSite.Click = [this] { platform.DesktopShell().OpenPage(SitePage); };
    slide.lblMenu[0].Click = [this] { menus.mnuFile.Popup(); };
    slide.lblMenu[1].Click = [this] { menus.mnuPanel.Popup(); };
    slide.lblMenu[2].Click = [this] { menus.mnuQuickLinks.Popup(); };
    slide.lblMenu[3].Click = [this] { menus.mnuHelp.Popup(); };
    slide.lblMenu[4].Click = [this] { slide.Close(); };
}

void frmMain::BindFileMenu() {
    menus.mnuNewSettings.Click = [this] { other.cmdNewSettings.Press(); };
    menus.mnuLoadSettings.Click = [this] { other.cmdLoadSettings.Press(); };
    menus.mnuSaveSettings.Click = [this] { other.cmdSaveSettings.Press(); };
    menus.mnuLoadGannetSettings.Click = [this] { other.cmdLoadGannetSettings.Press(); };
    menus.mnuExit.Click = [this] { platform.DesktopShell().Quit(); }; // the tray icon stays, on purpose
    menus.mnuExit2.Click = [this] { Form_Unload(); };
    menus.mnuShow.Click = [this] { ShowWindow(); };
}

void frmMain::BindPopups() {
    menus.mnuOpenConsole.Click = [this] {
        if (chats.lstChats.ListIndex() >= 0) consoles.Open(chats.lstChats.Text());
    };
    menus.mnuUnbanUser.Click = [this] { ejects.mnuUnbanUser(); };
    menus.mnuRemoveEjectedList.Click = [this] { ejects.mnuRemoveEjectedList(); };
    OnRightButton(chats.lstChats, menus.mnuChats);
    OnRightButton(ejects.lstEjected, menus.mnuEjectList);
    OnRightButton(ejects.lstEjectListChats, menus.mnuEjectListChats);
}

} // namespace halyard
