#include "surface/windows/frmUniPerms.h"

#include "state/Options.h"

namespace halyard {

frmUniPerms::frmUniPerms(const SurfaceContext& context) : Edited(context) {
    form.SetVisible(false);
    cmdSetUniPerms.Click = [this] {
        this->context.options.UniPerms = PermsOf(chkPerm);
        Settle();
    };
    cmdDefaultUniPerms.Click = [this] {
        this->context.options.UniPerms = DefaultPerms;
        Fill();
    };
}

void frmUniPerms::Fill() {
    ShowPerms(chkPerm, context.options.UniPerms);
    Settle();
}

std::string frmUniPerms::Content() const { return PermsOf(chkPerm); }

} // namespace halyard
