#pragma once

// The panel that signs on and off. The main window owns the one; the boxes are those of the option model.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <functional>

namespace halyard {

class ConnectionPanel {
  public:
    explicit ConnectionPanel(const SurfaceContext& context);

    std::deque<Frame> FrameMisc =
        Numbered<Frame>("FrameMisc", 0, {"Connection Setup", "Login Options", "Connection Status"});
    std::deque<Label> lblMisc =
        Numbered<Label>("lblMisc", 0, {"Screenname", "Password", "Auth Server", "Port"});
    Label lblConnectionInfo{"lblConnectionInfo", "Idle..."};
    Button cmdSignOn{"cmdSignOn", "Sign On"};
    Button cmdSignOff{"cmdSignOff", "Sign Off"};

    bool SignedOn = false; ///< from the log-in on

    /// The two buttons as they stand while signed on, or signing on, and while not.
    void SetButtons(bool online);
    /// Signs on with what stands in the boxes, unchecked.
    void Login();
    /// Asked before each sign-on, the one by the button and those of the way back; false refuses it, and who
    /// is asked has said why. Unset, all may begin.
    enum class By { Hand, WayBack };
    std::function<bool(By by)> onMayLogin;
    bool MayLogin(By by) const { return !onMayLogin || onMayLogin(by); }
    /// The control has dropped its rooms without a word about each.
    std::function<void()> onRoomsDropped;
    /// The list of rooms is to be emptied.
    std::function<void()> onSigningOff;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& label : lblMisc) visit(label);
        visit(lblConnectionInfo), visit(cmdSignOn), visit(cmdSignOff);
    }

  private:
    void SignOnClicked();
    void SignOffClicked();

    const SurfaceContext& context;
};

} // namespace halyard
