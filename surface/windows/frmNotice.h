#pragma once

// The small window that tells of lost connections and of the attempts to come back, and stops them.

#include "platform/Controls.h"
#include "surface/windows/Opened.h"

#include <functional>
#include <string>

namespace halyard {

class frmNotice : public Opened<frmNotice> {
  public:
    explicit frmNotice(const SurfaceContext& context);

    Form form{"frmNotice", "Re-connection"};
    TextBox txtNotices{"txtNotices"};
    Button cmdStop{"cmdStop", "Stop"};

    std::function<void()> onStop;

    /// Appends the text on a line of its own; a log of 65,535 characters starts anew.
    void AddNotice(const std::string& strNotice);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(txtNotices), visit(cmdStop);
    }

  private:
    friend class Opened<frmNotice>;
    void Fill();
};

} // namespace halyard
