#include "surface/windows/frmIMComs.h"

#include "state/Options.h"
#include "surface/WindowHost.h"
#include "surface/look/Theme.h"
#include "surface/windows/LogLimit.h"

namespace halyard {

namespace {

constexpr const char* TurnOn = "Turn On IMComs";
constexpr const char* TurnOff = "Turn Off IMComs";

} // namespace

frmIMComs::frmIMComs(const SurfaceContext& context) : context(context) {
    form.SetVisible(false);
    cmdIMComs.Click = [this] {
        // What the caption says, which is older than settings loaded since.
        this->context.options.SetIMComs(cmdIMComs.Caption() == TurnOn);
        ShowSwitch();
    };
    cmdClear.Click = [this] { txtIMs.SetText(""); };
}

void frmIMComs::Show() {
    if (Loaded()) return context.windows.Focus(form);
    txtIMs.SetText("");
    ShowSwitch();
    EachControl(Theme());
    form.SetVisible(true);
    context.windows.Show(form);
}

void frmIMComs::Form_Unload() {
    if (!Loaded()) return;
    form.SetVisible(false);
    context.windows.Unload(form);
}

void frmIMComs::ShowSwitch() { cmdIMComs.SetCaption(context.options.IMComsOn ? TurnOff : TurnOn); }

void frmIMComs::IncomingIM(const std::string& strUser, const std::string& strMessage) {
    if (!Loaded()) return;
    if (txtIMs.Text().size() >= LogLimit) txtIMs.SetText("");
    txtIMs.Append(strUser + ": " + strMessage + "\r\n");
}

} // namespace halyard
