#pragma once

// The window that shows instant messages and turns commands by instant message on and off.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"

#include <string>

namespace halyard {

class frmIMComs {
  public:
    explicit frmIMComs(const SurfaceContext& context);

    Form form{"frmIMComs", "IMComs"};
    TextBox txtIMs{"txtIMs"}; ///< read only
    Button cmdIMComs{"cmdIMComs", "Turn On IMComs"};
    Button cmdClear{"cmdClear", "Clear"};

    bool Loaded() const { return form.Visible(); }
    /// Fills the window from the model, unless it is open, and shows it.
    void Show();
    void Form_Unload();
    void IncomingIM(const std::string& strUser, const std::string& strMessage);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(txtIMs), visit(cmdIMComs), visit(cmdClear);
    }

  private:
    void ShowSwitch();

    const SurfaceContext& context;
};

} // namespace halyard
