#include "surface/windows/frmCredits.h"

#include "platform/Platform.h"
#include "surface/WindowHost.h"
#include "surface/look/Banners.h"
#include "surface/look/Theme.h"
#include "surface/look/WebPages.h"

namespace halyard {

frmCredits::frmCredits(const SurfaceContext& context) : context(context) {
    form.SetVisible(false);
    lblSite.Click = [this] { this->context.platform.DesktopShell().OpenPage(SitePage); };
}

void frmCredits::Show() {
    if (Loaded()) return context.windows.Focus(form);
    lblTitle.SetCaption(context.banners.Title());
    lblCreator.SetCaption("Tiller");
    EachControl(Theme());
    form.SetVisible(true);
    context.windows.Show(form);
}

void frmCredits::Form_Unload() {
    if (!Loaded()) return;
    form.SetVisible(false);
    context.windows.Unload(form);
}

} // namespace halyard
