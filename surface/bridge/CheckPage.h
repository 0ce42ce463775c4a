#pragma once

// The page of the window Network that checks a network and shows what was found. The bridge owns the check
// itself; the window owns the one page.

#include "bridge/networks/check/NetworkCheck.h"
#include "platform/Controls.h"
#include "surface/SurfaceContext.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard {

class ChosenNetwork;

class CheckPage {
  public:
    /// All outlive it. `onRow` and `onDone` of the check are the page's.
    CheckPage(const SurfaceContext& context, ChosenNetwork& chosen, NetworkCheck& check);

    Frame FrameCheck{"FrameCheck", "Check this network"};
    Label lblCheckRoom{"lblCheckRoom", "Room"};
    TextBox txtCheckRoom{"txtCheckRoom", "", 100};
    Label lblCheckExchange{"lblCheckExchange", "Exchange"};
    TextBox txtCheckExchange{"txtCheckExchange", "4", 5};
    Button cmdStartCheck{"cmdStartCheck", "Start"};
    Button cmdStopCheck{"cmdStopCheck", "Stop"};
    Label lblCheckState{"lblCheckState", "Asks the network for each thing that the bot will need."};
    ListBox lstCheck{"lstCheck"};
    Label lblFound{"lblFound"}; ///< the whole of the selected row
    Button cmdSaveHexLog{"cmdSaveHexLog", "Save Hex Log"};

    /// Ends a running check, since the bot itself is about to sign on.
    void GiveWay();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameCheck), visit(lblCheckRoom), visit(txtCheckRoom), visit(lblCheckExchange);
        visit(txtCheckExchange), visit(cmdStartCheck), visit(cmdStopCheck), visit(lblCheckState);
        visit(lstCheck), visit(lblFound), visit(cmdSaveHexLog);
    }

  private:
    void Start();
    void Ended(const std::string& words);
    void AddRow(const CheckRow& row);
    void SaveHexLog();
    std::string Missing() const;

    const SurfaceContext& context;
    ChosenNetwork& chosen;
    NetworkCheck& check;
    std::string network; ///< that is checked, and the host
    std::string host;
};

} // namespace halyard
