#pragma once

// The window that edits the permissions which every new op gets.

#include "platform/Controls.h"
#include "surface/panels/PeoplePanel.h"
#include "surface/windows/Opened.h"

#include <deque>

namespace halyard {

class frmUniPerms : public Opened<frmUniPerms> {
  public:
    explicit frmUniPerms(const SurfaceContext& context);

    Form form{"frmUniPerms", "Uni Perms"};
    std::deque<CheckBox> chkPerm = PermBoxes();
    Button cmdSetUniPerms{"cmdSetUniPerms", "Set Uni Perms"};
    Button cmdDefaultUniPerms{"cmdDefaultUniPerms", "Default Uni Perms"};

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(cmdSetUniPerms), visit(cmdDefaultUniPerms);
        for (auto& box : chkPerm) visit(box);
    }

  private:
    friend class Opened<frmUniPerms>;
    void Fill();
};

} // namespace halyard
