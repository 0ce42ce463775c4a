#include "surface/bridge/watch/HistoryPage.h"

#include "bridge/ledger/reading/Moments.h"
#include "bridge/watch/Samples.h"
#include "surface/bridge/watch/HistoryStrips.h"

#include <algorithm>
#include <string>
#include <utility>

namespace halyard {

HistoryPage::HistoryPage(Samples& samples, const WatchHooks& hooks) : samples(samples), hooks(hooks) {
    optSpan.Click = [this](int) { Open(); };
    cmdTable.ToolTip = "T in the strips or the table";
    cmdTable.Click = [this] { ShowTable(!asTable); };
    cmdLedger.ToolTip = "Enter in the strips or the table";
    cmdLedger.Click = [this] { OpenLedger(); };
    const auto key = [this](int letter) {
        if (letter == 'T') cmdTable.Press();
    };
    strips.Click = [this] { SayPoint(); };
    strips.DblClick = [this] { cmdLedger.Press(); };
    strips.KeyDown = key;
    tblHistory.KeyDown = key;
    tblHistory.DblClick = [this] { cmdLedger.Press(); };
    // The newest line is the first, the newest column the last.
    tblHistory.Click = [this] {
        if (tblHistory.Index() >= 0) strips.SetPoint(strips.Columns() - 1 - tblHistory.Index());
    };
    FrameTable.SetVisible(false);
    Refresh(); // a view asks how many strips there are
}

void HistoryPage::Open() {
    columns.clear();
    Refresh();
    strips.SetPoint(strips.Columns() - 1);
    SayPoint();
    cmdLedger.SetEnabled(static_cast<bool>(hooks.openLedger));
}

void HistoryPage::Refresh() {
    auto newer = HistoryOf(samples, Span());
    if (newer == columns) return;
    const auto point = static_cast<std::size_t>(strips.Point());
    const bool atEnd = columns.empty() || point + 1 == columns.size();
    const auto moment = atEnd ? 0 : columns[point].minute;
    columns = std::move(newer);
    strips.Show(static_cast<int>(columns.size()), StripsOf(columns), MarksOf(columns));
    const auto same = std::ranges::find(columns, moment, &HistoryColumn::minute);
    if (!atEnd) strips.SetPoint(same == columns.end() ? 0 : static_cast<int>(same - columns.begin()));
    if (asTable) FillTable();
    SayPoint();
}

void HistoryPage::FillTable() {
    std::vector<std::string> keys;
    std::vector<TableBox::Line> lines;
    for (auto column = columns.rbegin(); column != columns.rend(); ++column) {
        const auto& sum = column->sum;
        keys.push_back(std::to_string(column->minute));
        TableBox::Line line{{ShownMoment(column->minute * Samples::MinuteMs), OnLineWords(*column)}};
        line.cells.resize(tblHistory.Columns.size());
        if (column->seconds > 0) {
            const auto text = [](int number) { return std::to_string(number); };
            line.cells = {line.cells[0],
                          line.cells[1],
                          text(sum.rooms),
                          text(sum.people),
                          text(std::max(sum.ratedLines, sum.ratedBans)),
                          text(sum.heard),
                          text(sum.said),
                          text(sum.dropped),
                          column->Bans() == 0 ? "0" : text(column->Bans()) + ": " + BansByRule(sum),
                          text(sum.linesWaiting) + " lines, " + text(sum.bansWaiting) + " bans"};
        }
        lines.push_back(std::move(line));
    }
    table.Show(keys, std::move(lines));
}

void HistoryPage::ShowTable(bool wanted) {
    asTable = wanted;
    if (asTable) {
        FillTable();
        tblHistory.Choose(strips.Columns() - 1 - strips.Point());
    }
    cmdTable.SetCaption(asTable ? "As Strips" : "As a Table");
    (asTable ? FrameTable : FrameStrips).SetVisible(true);
    (asTable ? FrameStrips : FrameTable).SetVisible(false);
}

void HistoryPage::SayPoint() {
    const auto point = static_cast<std::size_t>(strips.Point());
    if (point >= columns.size()) return;
    const auto words = HistoryWords(columns[point]);
    lblPoint.SetCaption(words);
    strips.SetCaption(words);
}

void HistoryPage::OpenLedger() {
    const auto point = static_cast<std::size_t>(strips.Point());
    if (point >= columns.size() || !hooks.openLedger) return;
    const auto& column = columns[point];
    hooks.openLedger(column.minute * Samples::MinuteMs, (column.minute + column.length) * Samples::MinuteMs);
}

} // namespace halyard
