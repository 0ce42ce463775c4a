#include "surface/bridge/watch/WatchWiring.h"

#include "bridge/watch/Drops.h"
#include "bridge/watch/SampleRows.h"
#include "platform/Platform.h"
#include "surface/bridge/FootLine.h"
#include "surface/bridge/LedgerHost.h"
#include "surface/bridge/ledger/LedgerWindow.h"
#include "surface/bridge/watch/AlarmHost.h"
#include "surface/bridge/watch/WatchHost.h"
#include "surface/bridge/watch/WatchWindow.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <utility>

namespace halyard {

WatchWiring::WatchWiring(frmMain& main, WatchHost& watch, LedgerHost& ledger, AlarmHost& alarms,
                         const Shown& shown)
    : main(main), watch(watch), ledger(ledger), alarms(alarms), shown(shown),
      refresher(main.Context().platform, [this] { StandFoot(); }), stuck(main.Context().platform.NewTimer()) {
    stuck->onTick = [this] { StandFoot(); };
    watch.truth.onChanged = [this] { Changed(); };
    alarms.book.onChanged = [this] { Changed(); };
    shown.foot.onTold = [this] { refresher.Due(); }; // such as that the ledger can't be written
    watch.samples.onSample = [this](const SampleFact& sample) {
        ReadEarlier();
        if (auto* parts = this->ledger.Open()) parts->ledger.Keep(SampleFact(sample));
    };
    FillHooks();
    StandFoot();
}

WatchWiring::~WatchWiring() {
    watch.truth.onChanged = alarms.book.onChanged = shown.foot.onTold = nullptr;
    watch.samples.onSample = nullptr;
}

void WatchWiring::Reopened() {
    earlierRead = false;
    Changed();
}

void WatchWiring::Changed() {
    refresher.Due();
    shown.window.Changed();
}

/// As soon as the file is open; once.
void WatchWiring::ReadEarlier() {
    auto* parts = ledger.Open();
    if (earlierRead || !parts || !parts->ledger.Records()) return;
    earlierRead = true;
    const auto first = main.Context().platform.CalendarMilliseconds() / Samples::MinuteMs - Samples::InMemory;
    auto found = std::make_shared<std::vector<SampleFact>>();
    parts->ledger.Read([found, first](Connection& file) { *found = ReadSamples(file, first); },
                       [this, found, alive = std::weak_ptr(life)](const DatabaseResult& result) {
                           if (alive.expired() || !result.Ok()) return;
                           watch.samples.TakeEarlier(*found);
                           shown.window.Changed();
                       });
}

void WatchWiring::StandFoot() {
    ReadEarlier();
    auto* parts = ledger.Open();
    const auto kept = !parts                  ? LedgerState::None
                      : parts->ledger.Fails() ? LedgerState::NotWritten
                                              : LedgerState::Kept;
    const auto now = main.Context().platform.Milliseconds();
    shown.foot.Stand(FootWords(watch.truth, now, kept, alarms.book.Ringing().size()));
    const auto next = NextStuck(watch.truth, now);
    stuck->SetEnabled(false);
    if (next < 0) return;
    stuck->SetInterval(static_cast<int>(std::min<std::int64_t>(next - now, 24 * 60 * Samples::MinuteMs)));
    stuck->SetEnabled(true);
}

void WatchWiring::FillHooks() {
    auto& hooks = shown.window.hooks;
    auto& control = main.Control();
    hooks.dropLine = [&control](std::int16_t room, std::int64_t number) {
        return DropWaitingLine(control, room, number);
    };
    hooks.dropBan = [&control](std::int16_t room, std::int32_t id) {
        return DropWaitingBan(control, room, id);
    };
    hooks.dropPerson = [this, &control](const std::string& name) {
        return static_cast<int>(DropAllOfPerson(control, watch.truth, name));
    };
    hooks.dropOp = [this, &control](const std::string& op) {
        return static_cast<int>(DropAllOfOp(control, watch.truth, op));
    };
    hooks.banPause = [&control](std::int16_t room) {
        for (const auto& each : control.Chat)
            if (each->ChatIndex == room) return each->BanPause();
        return control.sngBanPause;
    };
    hooks.openLedger = [this](std::int64_t since, std::int64_t until) {
        shown.acts.ShowBetween(since, until);
    };
}

} // namespace halyard
