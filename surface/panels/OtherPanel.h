#pragma once

// The panel of everything else: user, ban pause, fonts, files, and the box for commands of the operator. The
// main window owns the one; most boxes are those of the option model.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <functional>

namespace halyard {

class OtherPanel {
  public:
    /// `openMenu` slides the menu in, which a settings file may ask for.
    OtherPanel(const SurfaceContext& context, std::function<void()> openMenu);

    std::deque<Frame> FrameMisc =
        Numbered<Frame>("FrameMisc", 18, {"Basic Options", "Fonts", "Load/Save Options"});
    std::deque<Label> lblMisc = Numbered<Label>("lblMisc", 41,
                                                {"Custom Unrate Pause (Mins)", "Current User", "Ban Pause",
                                                 "Internal Command", "BG Color", "Font Color", "Font Type"});
    TextBox txtInternalCommand{"txtInternalCommand"};
    Button cmdSetUser{"cmdSetUser", "Set User"};
    Button cmdSetBP{"cmdSetBP", "Set Ban Pause"};
    Button cmdSetFont{"cmdSetFont", "Set Font"};
    Button cmdResetFont{"cmdResetFont", "Reset Font"};
    Button cmdGetFont{"cmdGetFont", "Get Font"};
    Label lblHexColorLink{"lblHexColorLink", "Valid Hex Color List"};
    Button cmdNewSettings{"cmdNewSettings", "New Settings"};
    Button cmdLoadSettings{"cmdLoadSettings", "Load Settings"};
    Button cmdSaveSettings{"cmdSaveSettings", "Save Settings"};
    Button cmdLoadGannetSettings{"cmdLoadGannetSettings", "Load Gannet Elite Settings"};

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& label : lblMisc) visit(label);
        visit(txtInternalCommand), visit(cmdSetUser), visit(cmdSetBP), visit(cmdSetFont);
        visit(cmdResetFont), visit(cmdGetFont), visit(lblHexColorLink), visit(cmdNewSettings);
        visit(cmdLoadSettings), visit(cmdSaveSettings), visit(cmdLoadGannetSettings);
    }

  private:
    void BindFontsAndFiles();
    void SetUserClicked();
    void SetBPClicked();
    void InternalCommandKey(int key);
    void LoadClicked();
    void SaveClicked();
    void LoadGannetClicked();

    const SurfaceContext& context;
    std::function<void()> openMenu;
};

} // namespace halyard
