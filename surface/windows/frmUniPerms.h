#pragma once

// The window that edits the permissions which every new op gets.

#include "platform/Controls.h"
#include "surface/panels/PeoplePanel.h"
#include "surface/windows/Edited.h"

#include <deque>
#include <string>

namespace halyard {

class frmUniPerms : public Edited<frmUniPerms> {
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
    friend class Edited<frmUniPerms>;
    void Fill();
    std::string Content() const;
};

} // namespace halyard
