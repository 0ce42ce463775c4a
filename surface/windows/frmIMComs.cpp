#include "surface/windows/frmIMComs.h"

#include "state/Options.h"
#include "surface/windows/LogLimit.h"

namespace halyard {

namespace {

constexpr const char* TurnOn = "Turn On IMComs";
constexpr const char* TurnOff = "Turn Off IMComs";

} // namespace

frmIMComs::frmIMComs(const SurfaceContext& context) : Opened(context) {
    form.SetVisible(false);
    cmdIMComs.Click = [this] {
        // What the caption says, which is older than settings loaded since.
        this->context.options.SetIMComs(cmdIMComs.Caption() == TurnOn);
        ShowSwitch();
    };
    cmdClear.Click = [this] { txtIMs.SetText(""); };
}

void frmIMComs::Fill() {
    txtIMs.SetText("");
    ShowSwitch();
}

void frmIMComs::ShowSwitch() { cmdIMComs.SetCaption(context.options.IMComsOn ? TurnOff : TurnOn); }

void frmIMComs::IncomingIM(const std::string& strUser, const std::string& strMessage) {
    if (!Loaded()) return;
    if (txtIMs.Text().size() >= LogLimit) txtIMs.SetText("");
    txtIMs.Append(strUser + ": " + strMessage + "\r\n");
}

} // namespace halyard
