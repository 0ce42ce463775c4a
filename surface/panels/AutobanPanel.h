#pragma once

// The panel of autobans and autowords. The main window owns the one; lists and switches are those of the
// option model.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

namespace halyard {

class AutobanPanel {
  public:
    explicit AutobanPanel(const SurfaceContext& context);

    std::deque<Frame> FrameMisc =
        Numbered<Frame>("FrameMisc", 11, {"Autobans", "Other Auto Options", "Autowords"});
    std::deque<Label> lblMisc = Numbered<Label>("lblMisc", 19, {"Autoban Level"});
    TextBox txtAddAB{"txtAddAB", "", 500};
    TextBox txtAddAW{"txtAddAW", "", 500};

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& label : lblMisc) visit(label);
        visit(txtAddAB), visit(txtAddAW);
    }
};

} // namespace halyard
