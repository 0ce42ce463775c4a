#include "surface/bridge/watch/WaitingPage.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

std::string NumberWords(std::size_t count, const char* one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

} // namespace

WaitingPage::WaitingPage(const Truth& truth, WatchClock& clock, const WatchHooks& hooks)
    : truth(truth), clock(clock), hooks(hooks) {
    tblWaiting.Click = [this] { Chose(); };
    cmdDrop.ToolTip = "D in the list";
    cmdDrop.Click = [this] { Drop(); };
    cmdDropPerson.Click = [this] {
        if (const auto* chosen = Chosen()) DropAll(this->hooks.dropPerson, chosen->person);
    };
    cmdDropOp.Click = [this] {
        if (const auto* chosen = Chosen()) DropAll(this->hooks.dropOp, chosen->op);
    };
    tblWaiting.KeyDown = [this](int key) {
        if (key == 'D') cmdDrop.Press();
    };
}

std::string WaitingPage::Goes(const Departing& departing) {
    if (departing.overtaken) return "never";
    if (departing.at < 0) return "not until freed";
    const auto left = std::max<std::int64_t>(departing.at - clock.Now(), 0);
    return clock.Shown(departing.at) + " (in " + std::to_string((left + 999) / 1000) + " s)";
}

void WaitingPage::AddLines(const RoomTruth& room, std::vector<std::string>& keys,
                           std::vector<TableBox::Line>& lines) {
    const auto forecast = ForecastLines(room, clock.Now());
    for (std::size_t index = 0; index < room.lines.size() && waits.size() < Most; ++index) {
        const auto& [send, origin, since] = room.lines[index];
        const auto departing = index < forecast.size() ? forecast[index] : Departing{};
        waits.push_back({room.slot, false, send.Number, send.TheReplacement, origin.op});
        keys.push_back("l" + std::to_string(send.Number));
        lines.push_back({{room.name, "line \"" + send.TheType + "\"", send.TheReplacement,
                          OriginWords(origin), clock.Shown(since), Goes(departing), HoldupWords(departing)}});
    }
}

void WaitingPage::AddBans(const RoomTruth& room, std::vector<std::string>& keys,
                          std::vector<TableBox::Line>& lines) {
    const auto pause = hooks.banPause ? hooks.banPause(room.slot) : 0.0F;
    const auto forecast = ForecastBans(room, clock.Now(), pause);
    for (std::size_t index = 0; index < room.bans.size() && waits.size() < Most; ++index) {
        const auto& ban = room.bans[index];
        const auto departing = index < forecast.size() ? forecast[index] : Departing{};
        waits.push_back({room.slot, true, ban.id, ban.name, ban.origin.op});
        keys.push_back("b" + std::to_string(room.slot) + ":" + std::to_string(ban.id));
        lines.push_back({{room.name, BanWords(ban.kind), ban.name, OriginWords(ban.origin),
                          clock.Shown(ban.since), Goes(departing), HoldupWords(departing)}});
    }
}

void WaitingPage::Refresh() {
    std::vector<std::string> keys;
    std::vector<TableBox::Line> lines;
    waits.clear();
    std::size_t allLines = 0, allBans = 0;
    for (const auto& [slot, room] : truth.Rooms()) {
        AddBans(room, keys, lines);
        AddLines(room, keys, lines);
        allLines += room.lines.size(), allBans += room.bans.size();
    }
    auto words = allLines + allBans == 0
                     ? std::string("Nothing waits.")
                     : NumberWords(allLines, "line") + " and " + NumberWords(allBans, "ban") + " wait.";
    if (allLines + allBans > waits.size())
        words += " The first " + std::to_string(waits.size()) + " are listed.";
    lblWaiting.SetCaption(words);
    table.Show(keys, std::move(lines));
    Chose();
    RefreshGone();
}

/// Newest first.
void WaitingPage::RefreshGone() {
    std::vector<std::string> keys;
    std::vector<TableBox::Line> lines;
    const auto& dropped = truth.Dropped();
    for (auto number = truth.DroppedCount(); const auto& gone : dropped) {
        keys.push_back(std::to_string(number - dropped.size() + keys.size()));
        const auto what = gone.ban ? gone.what : "line \"" + gone.what + "\"";
        lines.push_back(
            {{clock.Shown(gone.at), gone.room, what, gone.whom, DropWords(gone), OriginWords(gone.origin)}});
    }
    std::ranges::reverse(keys);
    std::ranges::reverse(lines);
    lblGone.SetCaption(truth.DroppedCount() == 0
                           ? "Nothing was dropped since the start."
                           : NumberWords(truth.DroppedCount(), "thing") + " never went since the start:");
    goneTable.Show(keys, std::move(lines));
}

const WaitingPage::Waits* WaitingPage::Chosen() const {
    const auto index = static_cast<std::size_t>(tblWaiting.Index());
    return tblWaiting.Index() >= 0 && index < waits.size() ? &waits[index] : nullptr;
}

void WaitingPage::Chose() {
    const auto* chosen = Chosen();
    cmdDrop.SetEnabled(chosen && (chosen->ban ? !!hooks.dropBan : !!hooks.dropLine));
    cmdDropPerson.SetEnabled(chosen && hooks.dropPerson && !chosen->person.empty());
    cmdDropOp.SetEnabled(chosen && hooks.dropOp && !chosen->op.empty());
}

void WaitingPage::Drop() {
    const auto* chosen = Chosen();
    if (!chosen) return;
    const bool gone = chosen->ban ? hooks.dropBan(chosen->room, static_cast<std::int32_t>(chosen->number))
                                  : hooks.dropLine(chosen->room, chosen->number);
    lblDropped.SetCaption(gone ? "Dropped." : "It waits no longer.");
    Refresh();
}

void WaitingPage::DropAll(const std::function<int(const std::string&)>& drop, const std::string& name) {
    const auto whose = name; // the line it stands in goes
    const auto count = drop(whose);
    lblDropped.SetCaption("Dropped " + std::to_string(count) + " of " + whose + ".");
    Refresh();
}

} // namespace halyard
