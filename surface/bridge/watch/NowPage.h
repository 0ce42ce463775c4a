#pragma once

// The page of the window Watch that says where everything stands at this moment: the account, its two
// connections, and each room. The window owns the one.

#include "platform/Table.h"
#include "surface/bridge/watch/LiveTable.h"
#include "surface/bridge/watch/WatchWords.h"

#include <string>
#include <vector>

namespace halyard {

class NowPage {
  public:
    /// Both outlive it.
    NowPage(const Truth& truth, WatchClock& clock) : truth(truth), clock(clock) {}

    Frame FrameNow{"FrameNow", "Now"};
    TableBox tblNow{"tblNow",
                    {{"What", 21},
                     {"Stands", 0},
                     {"Since", 10},
                     {"Heard", 10},
                     {"Answered", 12},
                     {"Stuck from", 12},
                     {"Owner", 12},
                     {"Rates", 16},
                     {"People", 8},
                     {"Lines/min", 11},
                     {"Waiting", 15}}};
    TextBox txtNow{"txtNow"}; ///< read only: the chosen line, a cell a line

    /// With a line chosen.
    void Open() {
        Refresh();
        if (tblNow.Index() < 0) tblNow.Choose(0);
    }
    void Refresh();
    /// The chosen line is another.
    void ShowChosen();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameNow), visit(tblNow), visit(txtNow);
    }

  private:
    void Add(const std::string& what, const StageTruth& standing, std::vector<std::string> further);
    void AddRoom(const RoomTruth& room);

    const Truth& truth;
    WatchClock& clock;
    LiveTable table{tblNow};
    std::vector<std::string> keys; ///< of the lines that are put together now
    std::vector<TableBox::Line> lines;
};

} // namespace halyard
