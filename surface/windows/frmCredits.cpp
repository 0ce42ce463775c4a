#include "surface/windows/frmCredits.h"

#include "platform/Platform.h"
#include "surface/look/Banners.h"
#include "surface/look/WebPages.h"

namespace halyard {

frmCredits::frmCredits(const SurfaceContext& context) : Opened(context) {
    form.SetVisible(false);
    lblSite.Click = [this] { this->context.platform.DesktopShell().OpenPage(SitePage); };
}

void frmCredits::Fill() {
    lblTitle.SetCaption(context.banners.Title());
    lblCreator.SetCaption("Tiller");
}

} // namespace halyard
