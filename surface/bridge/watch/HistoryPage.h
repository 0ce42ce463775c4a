#pragma once

// The page of the window Watch that shows the last hour or day: as strips with a point that tells its moment,
// or as a table of the same figures. The window owns the one.

#include "bridge/watch/History.h"
#include "platform/Strips.h"
#include "platform/Table.h"
#include "surface/bridge/watch/LiveTable.h"
#include "surface/bridge/watch/WatchHooks.h"

#include <cstdint>
#include <vector>

namespace halyard {

class HistoryPage {
  public:
    /// Both outlive it.
    HistoryPage(Samples& samples, const WatchHooks& hooks);

    Frame FrameHistory{"FrameHistory", "History"};
    OptionGroup optSpan{"optSpan", {"Last hour", "Last day"}};
    Button cmdTable{"cmdTable", "As a Table"};
    Frame FrameStrips{"FrameStrips", "Strips"};
    Strips strips{"strips", "not running"}; ///< its caption says what holds at the point
    Label lblPoint{"lblPoint"};
    Frame FrameTable{"FrameTable", "Table"};
    TableBox tblHistory{"tblHistory",
                        {{"From", 29},
                         {"On line", 20},
                         {"Rooms", 8},
                         {"People", 8},
                         {"Limited (s)", 12},
                         {"Heard", 8},
                         {"Said", 8},
                         {"Dropped", 10},
                         {"Bans", 0},
                         {"Most waiting", 20}}};
    Button cmdLedger{"cmdLedger", "Ledger at This Time"};

    /// From the newest column on.
    void Open();
    /// The newest figures. The point stays at its moment; in the last column it goes along with time.
    void Refresh();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameHistory), visit(optSpan), visit(cmdTable), visit(FrameStrips), visit(strips);
        visit(lblPoint), visit(FrameTable), visit(tblHistory), visit(cmdLedger);
    }

  private:
    HistorySpan Span() const { return optSpan.Index() == 0 ? HistorySpan::Hour : HistorySpan::Day; }
    void Fill();
    void FillTable();
    void ShowTable(bool asTable);
    void SayPoint();
    void OpenLedger();

    Samples& samples;
    const WatchHooks& hooks;
    std::vector<HistoryColumn> columns;
    LiveTable table{tblHistory};
    bool asTable = false;
};

} // namespace halyard
