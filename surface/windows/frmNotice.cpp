#include "surface/windows/frmNotice.h"

#include "surface/WindowHost.h"
#include "surface/look/Theme.h"
#include "surface/windows/LogLimit.h"

namespace halyard {

frmNotice::frmNotice(const SurfaceContext& context) : context(context) {
    form.SetVisible(false);
    cmdStop.Click = [this] {
        if (onStop) onStop();
    };
}

void frmNotice::Show() {
    if (Loaded()) return;
    txtNotices.SetText("");
    EachControl(Theme());
    form.SetVisible(true);
    context.windows.Show(form);
}

void frmNotice::Form_Unload() {
    if (!Loaded()) return;
    form.SetVisible(false);
    context.windows.Unload(form);
}

void frmNotice::AddNotice(const std::string& strNotice) {
    if (txtNotices.Text().size() >= LogLimit) txtNotices.SetText("");
    txtNotices.Append(txtNotices.Text().empty() ? strNotice : "\r\n" + strNotice);
}

} // namespace halyard
