#pragma once

// The row under the panel of the connection: which network is chosen, what there is to know about it, and the
// way to its window. It stands beside what the panel shows, never in its place. The bridge owns the one.

#include "platform/Controls.h"

#include <string>

namespace halyard {

class NetworkRow {
  public:
    Label lblNetwork{"lblNetwork", "Network"};
    ChoiceBox cmbNetwork{"cmbNetwork"};
    Button cmdNetwork{"cmdNetwork", "Network\x85"};
    Label lblNetworkState{"lblNetworkState"};

    /// What happened last, in the place of what happened before; empty for nothing.
    void Tell(const std::string& text) { happened = text, Show(); }
    /// What holds as long as nobody says otherwise.
    void Stand(const std::string& text) { standing = text, Show(); }

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(lblNetwork), visit(cmbNetwork), visit(cmdNetwork), visit(lblNetworkState);
    }

  private:
    void Show() {
        const auto* blank = happened.empty() || standing.empty() ? "" : " ";
        lblNetworkState.SetCaption(happened + blank + standing);
    }

    std::string happened;
    std::string standing;
};

} // namespace halyard
