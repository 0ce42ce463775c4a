#pragma once

// The window that shows instant messages and turns commands by instant message on and off.

#include "platform/Controls.h"
#include "surface/windows/Opened.h"

#include <string>

namespace halyard {

class frmIMComs : public Opened<frmIMComs> {
  public:
    explicit frmIMComs(const SurfaceContext& context);

    Form form{"frmIMComs", "IMComs"};
    TextBox txtIMs{"txtIMs"}; ///< read only
    Button cmdIMComs{"cmdIMComs", "Turn On IMComs"};
    Button cmdClear{"cmdClear", "Clear"};

    /// The button says what the switch allows.
    void ShowSwitch();
    void IncomingIM(const std::string& strUser, const std::string& strMessage);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(txtIMs), visit(cmdIMComs), visit(cmdClear);
    }

  private:
    friend class Opened<frmIMComs>;
    void Fill();
};

} // namespace halyard
