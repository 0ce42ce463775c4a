#include "surface/windows/frmUniPerms.h"

#include "state/Options.h"

namespace halyard {

frmUniPerms::frmUniPerms(const SurfaceContext& context) : Opened(context) {
    form.SetVisible(false);
    cmdSetUniPerms.Click = [this] { this->context.options.UniPerms = PermsOf(chkPerm); };
    cmdDefaultUniPerms.Click = [this] {
        this->context.options.UniPerms = DefaultPerms;
        Fill();
    };
}

void frmUniPerms::Fill() { ShowPerms(chkPerm, context.options.UniPerms); }

} // namespace halyard
