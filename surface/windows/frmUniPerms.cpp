#include "surface/windows/frmUniPerms.h"

#include "state/Options.h"
#include "surface/WindowHost.h"
#include "surface/look/Theme.h"

namespace halyard {

frmUniPerms::frmUniPerms(const SurfaceContext& context) : context(context) {
    form.SetVisible(false);
    cmdSetUniPerms.Click = [this] { this->context.options.UniPerms = PermsOf(chkPerm); };
    cmdDefaultUniPerms.Click = [this] {
        this->context.options.UniPerms = DefaultPerms;
        Fill();
    };
}

void frmUniPerms::Show() {
    if (Loaded()) return context.windows.Focus(form);
    Fill();
    EachControl(Theme());
    form.SetVisible(true);
    context.windows.Show(form);
}

void frmUniPerms::Form_Unload() {
    if (!Loaded()) return;
    form.SetVisible(false);
    context.windows.Unload(form);
}

void frmUniPerms::Fill() { ShowPerms(chkPerm, context.options.UniPerms); }

} // namespace halyard
