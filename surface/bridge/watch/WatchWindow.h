#pragma once

// The window Watch: where everything stands now, what waits, what rings, and the last hour and day. It shows
// what is told elsewhere at most four times a second, and only while it is open. The bridge owns the one and
// fills its hooks.

#include "surface/bridge/watch/AlarmPage.h"
#include "surface/bridge/watch/HistoryPage.h"
#include "surface/bridge/watch/NowPage.h"
#include "surface/bridge/watch/Refresher.h"
#include "surface/bridge/watch/WaitingPage.h"
#include "surface/windows/Opened.h"

#include <memory>

namespace halyard {

class WatchHost;

class WatchWindow : public Opened<WatchWindow> {
  public:
    enum Page { Now, Waiting, Alarms, History };
    static constexpr int Beat = 1000; ///< ms after which what time alone changes is looked at

    /// All outlive it.
    WatchWindow(const SurfaceContext& context, WatchHost& watch, AlarmHost& alarms, LedgerHost& ledger);

    WatchHooks hooks; ///< filled before the window is opened
    Form form{"frmWatch", "Watch"};
    OptionGroup optPage{"optPage", {"Now", "Waiting", "Alarms", "History"}};
    WatchClock clock;
    NowPage now;
    WaitingPage waiting;
    AlarmPage alarms;
    HistoryPage history;

    /// Opens the window, or brings it to the front, with this page.
    void ShowAt(Page page);
    /// What is true has changed.
    void Changed() {
        if (Loaded()) refresher.Due();
    }
    void Form_Unload();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(optPage);
        now.EachControl(visit), waiting.EachControl(visit);
        alarms.EachControl(visit), history.EachControl(visit);
    }

  private:
    friend class Opened<WatchWindow>;
    void Fill();
    void ShowPage(int page);
    void Refresh();

    Refresher refresher;
    std::unique_ptr<Timer> beat;
};

} // namespace halyard
