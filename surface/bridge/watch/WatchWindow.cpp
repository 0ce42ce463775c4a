#include "surface/bridge/watch/WatchWindow.h"

#include "surface/bridge/watch/WatchHost.h"

#include <array>

namespace halyard {

WatchWindow::WatchWindow(const SurfaceContext& context, WatchHost& watch, AlarmHost& alarms,
                         LedgerHost& ledger)
    : Opened(context), clock(context.platform), now(watch.truth, clock), waiting(watch.truth, clock, hooks),
      alarms(alarms, ledger), history(watch.samples, hooks),
      refresher(context.platform, [this] { Refresh(); }), beat(context.platform.NewTimer()) {
    form.SetVisible(false);
    optPage.Click = [this](int page) { ShowPage(page); };
    now.tblNow.Click = [this] { now.ShowChosen(); };
    beat->SetInterval(Beat);
    beat->onTick = [this] { Refresh(); };
    ShowPage(Now);
}

void WatchWindow::ShowAt(Page page) {
    optPage.Select(page);
    Show();
}

void WatchWindow::Fill() {
    ShowPage(optPage.Index());
    beat->SetEnabled(true);
}

void WatchWindow::Form_Unload() {
    beat->SetEnabled(false);
    refresher.Drop();
    Opened::Form_Unload();
}

void WatchWindow::ShowPage(int page) {
    const std::array<Frame*, 4> frames{&now.FrameNow, &waiting.FrameWaiting, &alarms.FrameAlarms,
                                       &history.FrameHistory};
    // The one comes before the others go, so that the focus has somewhere to go.
    frames[static_cast<std::size_t>(page)]->SetVisible(true);
    for (std::size_t index = 0; index < frames.size(); ++index)
        frames[index]->SetVisible(static_cast<int>(index) == page);
    if (page == History) return history.Open();
    if (page == Now) return now.Open();
    Refresh();
}

void WatchWindow::Refresh() {
    switch (optPage.Index()) {
    case Now: return now.Refresh();
    case Waiting: return waiting.Refresh();
    case Alarms: return alarms.Fill();
    default: return history.Refresh();
    }
}

} // namespace halyard
