#include "surface/bridge/watch/NowPage.h"

#include "surface/bridge/watch/FootWords.h"

#include <utility>

namespace halyard {

namespace {

std::string NamedPlace(const std::string& name, std::int16_t exchange) {
    return name + (exchange == 4 ? "" : " (exchange " + std::to_string(exchange) + ")");
}

std::string WaitingWords(const RoomTruth& room) {
    if (room.lines.empty() && room.bans.empty()) return "nothing";
    return std::to_string(room.lines.size()) + " lines, " + std::to_string(room.bans.size()) + " bans";
}

} // namespace

void NowPage::Add(const std::string& what, const StageTruth& standing, std::vector<std::string> further) {
    TableBox::Line line{{what, StageWords(standing, clock.Now()), clock.Shown(standing.since),
                         clock.Shown(standing.lastHeard), clock.Shown(standing.lastAnswered),
                         clock.Shown(standing.stuckAt)}};
    if (standing.stage == Stage::ComingBack && standing.nextAttempt >= 0)
        line.cells[1] += ", next attempt at " + clock.Shown(standing.nextAttempt);
    for (auto& cell : further) line.cells.push_back(std::move(cell));
    line.cells.resize(tblNow.Columns.size());
    keys.push_back(what);
    lines.push_back(std::move(line));
}

void NowPage::AddRoom(const RoomTruth& room) {
    const auto owner = room.owner ? "the bot" : room.ownerName;
    Add("Room " + NamedPlace(room.name, room.exchange), room.standing,
        {owner, RateWords(room, clock), std::to_string(room.people),
         std::to_string(room.LinesAMinute(clock.Now())), WaitingWords(room)});
}

void NowPage::Refresh() {
    keys.clear();
    lines.clear();
    const auto& name = truth.AccountName();
    Add(name.empty() ? "Account" : "Account " + name, truth.Account(), {});
    Add("Main connection", truth.Main(), {});
    Add("Navigation", truth.Navigation(), {});
    for (const auto& [slot, room] : truth.Rooms()) AddRoom(room);
    for (const auto& room : truth.Absent())
        Add("Room " + NamedPlace(room.name, room.exchange), room.standing, {});
    for (const auto& room : truth.Awaited()) {
        if (IsAbsent(truth, room)) continue;
        StageTruth standing;
        standing.stage = Stage::ComingBack;
        standing.words = "waits to be entered again";
        standing.since = room.since;
        Add("Room " + NamedPlace(room.name, room.exchange), standing, {});
    }
    table.Show(keys, std::move(lines));
    ShowChosen();
}

void NowPage::ShowChosen() {
    std::string text;
    const auto& cells = tblNow.At(tblNow.Index()).cells;
    for (std::size_t cell = 0; cell < cells.size(); ++cell)
        if (!cells[cell].empty()) text += tblNow.Columns[cell].heading + ": " + cells[cell] + "\r\n";
    txtNow.SetText(text);
}

} // namespace halyard
