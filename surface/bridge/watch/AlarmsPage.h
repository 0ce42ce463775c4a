#pragma once

// The page of the window Watch that lists what rings now, and what rang. The window owns the one.

#include "platform/Table.h"
#include "surface/bridge/watch/LiveTable.h"
#include "surface/bridge/watch/WatchHooks.h"

namespace halyard {

class AlarmsPage {
  public:
    /// `hooks` outlives it.
    explicit AlarmsPage(const WatchHooks& hooks) : hooks(hooks) {}

    Frame FrameAlarms{"FrameAlarms", "Alarms"};
    Label lblRinging{"lblRinging"}; ///< how many ring
    TableBox tblRinging{"tblRinging", {{"Since", 29}, {"Alarm", 26}, {"Of", 20}, {"What it says", 0}}};
    Label lblRang{"lblRang", "What rang and what ended"};
    TableBox tblRang{"tblRang",
                     {{"When", 29}, {"Alarm", 26}, {"Of", 20}, {"Why it was told", 20}, {"What it says", 0}}};

    void Refresh();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameAlarms), visit(lblRinging), visit(tblRinging), visit(lblRang), visit(tblRang);
    }

  private:
    const WatchHooks& hooks;
    LiveTable ringing{tblRinging};
    LiveTable rang{tblRang};
};

} // namespace halyard
