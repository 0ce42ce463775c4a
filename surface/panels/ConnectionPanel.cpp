#include "surface/panels/ConnectionPanel.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"

namespace halyard {

namespace {

/// What is missing for signing on; null when nothing is. The password is not trimmed, so one of blanks
/// passes.
const char* Missing(const OptionControls& boxes, bool signedOn) {
    if (signedOn) return "You are already online!";
    const auto name = Trim(boxes.txtSN.Text());
    if (name.empty()) return "Please enter in a screenname to sign on!";
    if (name.size() < 2) return "Screennames must be two or more characters!";
    if (boxes.txtPW.Text().empty()) return "Please enter in a password for that screenname!";
    if (Trim(boxes.txtPort.Text()).empty()) return "Please enter in a valid port number!";
    if (Trim(boxes.cmbServer.Text()).empty()) return "Please enter in valid Auth Server to connect to!";
    return nullptr;
}

} // namespace

ConnectionPanel::ConnectionPanel(const SurfaceContext& context) : context(context) {
    cmdSignOn.Click = [this] { SignOnClicked(); };
    cmdSignOff.Click = [this] { SignOffClicked(); };
    SetButtons(false);
}

void ConnectionPanel::SetButtons(bool online) {
    cmdSignOn.SetEnabled(!online);
    cmdSignOff.SetEnabled(online);
}

void ConnectionPanel::Login() {
    const auto& boxes = context.options.Controls;
    const auto port = RoundToInt32(Val(boxes.txtPort.Text())).value_or(0);
    context.control.Login(boxes.txtSN.Text(), boxes.txtPW.Text(), port, context.control.Settings.LoginMD5,
                          false, Trim(boxes.cmbServer.Text()));
    if (onRoomsDropped) onRoomsDropped();
}

void ConnectionPanel::SignOnClicked() {
    if (const auto* missing = Missing(context.options.Controls, SignedOn))
        return context.platform.Boxes().Note("Note", missing);
    if (!MayLogin(By::Hand)) return;
    lblConnectionInfo.SetCaption("Logging in...");
    SetButtons(true);
    Login();
}

void ConnectionPanel::SignOffClicked() {
    lblConnectionInfo.SetCaption("Logging off...");
    if (onSigningOff) onSigningOff();
    context.control.LogOff();
}

} // namespace halyard
