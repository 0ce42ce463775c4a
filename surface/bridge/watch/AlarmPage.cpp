#include "surface/bridge/watch/AlarmPage.h"

#include "base/Latin1.h"
#include "bridge/ledger/reading/AlarmRows.h"
#include "bridge/ledger/reading/Moments.h"
#include "surface/bridge/LedgerHost.h"
#include "surface/bridge/watch/AlarmHost.h"

#include <algorithm>

namespace halyard {

namespace {

std::string RingLine(const Ring& ring) { return ShownMoment(ring.at) + "  " + SentenceOf(ring); }

Ring RingOf(const AlarmRow& row) {
    return {row.at, static_cast<AlarmKind>(row.kind), FromUtf8(row.subject),
            static_cast<RingReason>(row.reason), FromUtf8(row.words)};
}

} // namespace

AlarmPage::AlarmPage(AlarmHost& alarms, LedgerHost& ledger) : alarms(alarms), ledger(ledger) {
    lstRinging.Click = [this] { cmdDismiss.SetEnabled(lstRinging.ListIndex() >= 0); };
    cmdDismiss.Click = [this] { Dismiss(); };
    cmdOlder.Click = [this] { ReadRang(); };
    cmdDismiss.SetEnabled(false);
}

void AlarmPage::Fill() {
    if (version == alarms.book.Version()) return;
    version = alarms.book.Version();
    FillRinging();
    oldest = 0;
    ReadRang();
}

void AlarmPage::FillRinging() {
    shown.clear();
    lstRinging.Clear();
    for (const auto& alarm : alarms.book.Ringing()) {
        lstRinging.AddItem(
            RingLine({alarm.since, alarm.kind, alarm.subject, RingReason::First, alarm.words}));
        shown.emplace_back(alarm.kind, alarm.subject);
    }
    cmdDismiss.SetEnabled(false);
}

/// What was told just now isn't in the file before the ledger has written it.
void AlarmPage::ReadRang() {
    auto* parts = ledger.Open();
    if (!parts || !parts->ledger.Records()) return ShowRemembered();
    auto rows = std::make_shared<std::vector<AlarmRow>>();
    parts->ledger.Read(
        [rows, before = oldest](Connection& file) { *rows = ReadAlarmRows(file, before, Rows); },
        [this, rows, from = oldest, alive = std::weak_ptr(life)](const DatabaseResult& done) {
            if (alive.expired() || from != oldest) return;
            if (!done.Ok()) return ShowRemembered();
            if (from == 0) lstRang.Clear();
            for (const auto& row : *rows) lstRang.AddItem(RingLine(RingOf(row)));
            if (!rows->empty()) oldest = rows->back().row;
            cmdOlder.SetEnabled(rows->size() == Rows);
        });
}

void AlarmPage::ShowRemembered() {
    lstRang.Clear();
    const auto& rang = alarms.book.Rang();
    for (auto ring = rang.rbegin(); ring != rang.rend(); ++ring) lstRang.AddItem(RingLine(*ring));
    cmdOlder.SetEnabled(false);
}

void AlarmPage::Dismiss() {
    const auto index = static_cast<std::size_t>(lstRinging.ListIndex());
    if (index >= shown.size()) return;
    const auto [kind, subject] = shown[index];
    alarms.book.Withdraw(kind, subject);
    Fill();
}

} // namespace halyard
