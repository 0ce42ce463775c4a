#pragma once

// The window that edits the permissions which every new op gets.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/panels/PeoplePanel.h"

#include <deque>

namespace halyard {

class frmUniPerms {
  public:
    explicit frmUniPerms(const SurfaceContext& context);

    Form form{"frmUniPerms", "Uni Perms"};
    std::deque<CheckBox> chkPerm = PermBoxes();
    Button cmdSetUniPerms{"cmdSetUniPerms", "Set Uni Perms"};
    Button cmdDefaultUniPerms{"cmdDefaultUniPerms", "Default Uni Perms"};

    bool Loaded() const { return form.Visible(); }
    /// Fills the window from the model, unless it is open, and shows it.
    void Show();
    void Form_Unload();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(cmdSetUniPerms), visit(cmdDefaultUniPerms);
        for (auto& box : chkPerm) visit(box);
    }

  private:
    void Fill();

    const SurfaceContext& context;
};

} // namespace halyard
