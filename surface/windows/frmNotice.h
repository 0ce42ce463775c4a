#pragma once

// The small window that tells of lost connections and of the attempts to come back, and stops them.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"

#include <functional>
#include <string>

namespace halyard {

class frmNotice {
  public:
    explicit frmNotice(const SurfaceContext& context);

    Form form{"frmNotice", "Re-connection"};
    TextBox txtNotices{"txtNotices"};
    Button cmdStop{"cmdStop", "Stop"};

    std::function<void()> onStop;

    bool Loaded() const { return form.Visible(); }
    /// Opens it, empty.
    void Show();
    void Form_Unload();
    /// Appends the text on a line of its own; a log of 65,535 characters starts anew.
    void AddNotice(const std::string& strNotice);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(txtNotices), visit(cmdStop);
    }

  private:
    const SurfaceContext& context;
};

} // namespace halyard
