#pragma once

// The panel of ops with their permissions, and of immunes. The main window owns the one; the lists are those
// of the option model.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <deque>
#include <string>

namespace halyard {

/// A check box a ccom, as the op panel and the window of universal permissions have them.
std::deque<CheckBox> PermBoxes();
/// The digits that the boxes show.
std::string PermsOf(const std::deque<CheckBox>& chkPerm);
void ShowPerms(std::deque<CheckBox>& chkPerm, const std::string& strPerms);

class PeoplePanel {
  public:
    explicit PeoplePanel(const SurfaceContext& context);

    std::deque<Frame> FrameMisc = Numbered<Frame>("FrameMisc", 8, {"Ops", "Op Permissions", "Immunes"});
    TextBox txtAddOp{"txtAddOp", "", 500};
    Label lblCurrentOp{"lblCurrentOp"};
    std::deque<CheckBox> chkPerm = PermBoxes();
    Button cmdSetPerms{"cmdSetPerms", "Set Perms"};
    Button cmdDefaultPerms{"cmdDefaultPerms", "Default Perms"};
    Button cmdFullPerms{"cmdFullPerms", "Full Perms"};
    TextBox txtAddImm{"txtAddImm", "", 500};

    /// Shows no op any more when the shown one is none. True when that was so.
    bool ForgetLostOp();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& box : chkPerm) visit(box);
        visit(txtAddOp), visit(lblCurrentOp), visit(cmdSetPerms), visit(cmdDefaultPerms);
        visit(cmdFullPerms), visit(txtAddImm);
    }

  private:
    void BindLists();
    void OpClicked();
    void GivePerms(const std::string& strPerms);

    const SurfaceContext& context;
};

} // namespace halyard
