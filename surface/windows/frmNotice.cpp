#include "surface/windows/frmNotice.h"

#include "surface/windows/LogLimit.h"

namespace halyard {

frmNotice::frmNotice(const SurfaceContext& context) : Opened(context) {
    form.SetVisible(false);
    cmdStop.Click = [this] {
        if (onStop) onStop();
    };
}

void frmNotice::Fill() { txtNotices.SetText(""); }

void frmNotice::AddNotice(const std::string& strNotice) {
    if (txtNotices.Text().size() >= LogLimit) txtNotices.SetText("");
    txtNotices.Append(txtNotices.Text().empty() ? strNotice : "\r\n" + strNotice);
}

} // namespace halyard
