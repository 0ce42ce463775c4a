#include "surface/bridge/watch/AlarmsPage.h"

#include "bridge/ledger/reading/Moments.h"

#include <utility>

namespace halyard {

namespace {

using AlarmList = std::vector<ShownAlarm>;

void ListAlarms(LiveTable& table, const AlarmList& alarms, bool withReason) {
    std::vector<std::string> keys;
    std::vector<TableBox::Line> lines;
    for (const auto& alarm : alarms) {
        TableBox::Line line{{ShownMoment(alarm.at), alarm.what, alarm.subject}};
        if (withReason) line.cells.push_back(alarm.reason);
        line.cells.push_back(alarm.words);
        keys.push_back(std::to_string(alarm.at) + alarm.what + "\n" + alarm.subject + "\n" + alarm.reason);
        lines.push_back(std::move(line));
    }
    table.Show(keys, std::move(lines));
}

} // namespace

void AlarmsPage::Refresh() {
    const auto now = hooks.ringing ? hooks.ringing() : AlarmList();
    ListAlarms(ringing, now, false);
    ListAlarms(rang, hooks.rang ? hooks.rang() : AlarmList(), true);
    lblRinging.SetCaption(now.empty()       ? "No alarm rings."
                          : now.size() == 1 ? "1 alarm rings:"
                                            : std::to_string(now.size()) + " alarms ring:");
}

} // namespace halyard
