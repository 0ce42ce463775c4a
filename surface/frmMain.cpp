#include "surface/frmMain.h"

#include "platform/Platform.h"

namespace halyard {

namespace {

constexpr int UserInfoTimeout = 4000; // ms

} // namespace

frmMain::frmMain(Platform& platform, WindowHost* windows)
    : platform(platform), control(platform, settings, *this, *this), options(platform, control, settings),
      counters(options, control), engine(options, control, counters, *this, platform.Boxes()),
      context{platform, windows ? *windows : undrawn, banners, control, options, counters, engine},
      tray(platform), autoSave(platform, options), tmrTimeout(platform.NewTimer()), slide(platform, form),
      rates(context, form), connection(context), chats(context, connection), people(context),
      autobans(context), ejects(context), stats(context, connection),
      other(context, [this] { slide.Open(); }), consoles(context),
      reconnection(context, {connection, chats, consoles, tray}), ccomsWindow(context),
      uniPermsWindow(context), locksWindow(context), chatSendsWindow(context), imComsWindow(context),
      creditsWindow(context) {
    tmrTimeout->SetInterval(UserInfoTimeout);
    tmrTimeout->onTick = [this] {
        control.strUserInfo.clear();
        control.GettingUserInfo = false;
        tmrTimeout->SetEnabled(false);
    };
    connection.onRoomsDropped = [this] {
        chats.DropLostRooms();
        consoles.DropLostRooms();
    };
    connection.onSigningOff = [this] { chats.ClearRooms(); };
    options.onCloseEditors = [this] {
        locksWindow.Form_Unload();
        ccomsWindow.Form_Unload();
        chatSendsWindow.Form_Unload();
        uniPermsWindow.Form_Unload();
    };
    options.onMayCloseEditors = [this] {
        return ccomsWindow.MayDrop() && chatSendsWindow.MayDrop() && uniPermsWindow.MayDrop();
    };
    form.Resize = [this] { Form_Resize(); };
    BindMenus();
    BindFileMenu();
    BindPopups();
}

} // namespace halyard
