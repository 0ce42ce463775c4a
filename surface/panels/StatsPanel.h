#pragma once

// The panel of counters and recent actions, with the buttons that empty what waits, and the timer that saves
// the counters and renews the profile. The main window owns the one.

#include "platform/Controls.h"
#include "platform/Timer.h"
#include "state/StatisticsFile.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <memory>

namespace halyard {

class ConnectionPanel;

class StatsPanel {
  public:
    StatsPanel(const SurfaceContext& context, const ConnectionPanel& connection);

    std::deque<Frame> FrameMisc = Numbered<Frame>("FrameMisc", 16, {"Recent Actions", "Basic Stats"});
    /// The captions of the 21 counters.
    std::deque<Label> lblMisc;
    Button cmdClearStats{"cmdClearStats", "Clear Stats"};
    Button cmdClearActions{"cmdClearActions", "Clear Actions"};
    Button cmdClearMsgQueue{"cmdClearMsgQueue", "Clear Message Queue"};
    Button cmdClearBanQueue{"cmdClearBanQueue", "Clear Ban Queue"};
    Button cmdClearTimeBans{"cmdClearTimeBans", "Clear Time Bans"};

    StatisticsFile File;
    std::unique_ptr<Timer> tmrStats; ///< 31 s, always running

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        for (auto& label : lblMisc) visit(label);
        visit(cmdClearStats), visit(cmdClearActions), visit(cmdClearMsgQueue), visit(cmdClearBanQueue);
        visit(cmdClearTimeBans);
    }

  private:
    void StatsTick();
    void ClearStatsClicked();
    void ClearTimeBansClicked();
    void ClearQueues(int intType);

    const SurfaceContext& context;
    const ConnectionPanel& connection;
};

} // namespace halyard
