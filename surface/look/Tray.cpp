#include "surface/look/Tray.h"

#include "base/Text.h"
#include "platform/Platform.h"

namespace halyard {

namespace {

constexpr std::size_t TipLength = 63; // a field of 64 characters, the last of which ends the text

std::string Tip(const std::string& user) {
    return Left("Halyard 2.0 (Beta 1.0) [User: " + user + "]", TipLength);
}

} // namespace

void Tray::Add() { platform.DesktopShell().AddTrayIcon(Tip("None")); }

void Tray::ShowUser(const std::string& user) { platform.DesktopShell().SetTrayTip(Tip(user)); }

void Tray::Remove() { platform.DesktopShell().RemoveTrayIcon(); }

} // namespace halyard
