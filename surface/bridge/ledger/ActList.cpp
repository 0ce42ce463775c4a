#include "surface/bridge/ledger/ActList.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr std::size_t LongestPage = 1000; // that FindActs gives

TableBox::Line LineOf(const ActRow& act, TableBox::Tick tick = TableBox::Tick::Off) {
    return {ActCells(act), tick};
}

bool SameState(const ActRow& one, const ActRow& other) {
    return one.outcomeWords == other.outcomeWords && one.undone == other.undone;
}

} // namespace

ActList::ActList(const LedgerRead& read) : page(read), newer(read) {
    lblNew.SetVisible(false);
    lblNew.Click = [this] { Home(); };
    tblActs.Click = [this] {
        if (onChosen) onChosen();
    };
    tblActs.AtEnd = [this] { Further(); };
}

ActList::Place ActList::Here() const {
    const auto* chosen = Chosen();
    return {acts.empty() ? 0 : acts.front().number, chosen ? chosen->number : 0, acts.size()};
}

void ActList::List(const Search& wanted, const Place& place) {
    Clear("Reading\x85");
    search = wanted;
    const auto before = place.top == 0 ? 0 : place.top + 1;
    const auto count = std::clamp(place.lines, PageSize, LongestPage);
    const bool asked =
        page.Ask([wanted, before,
                  count](Connection& connection) { return FindActs(connection, wanted, before, count); },
                 [this, place, count](const DatabaseResult& result, std::vector<ActRow> found) {
                     if (!result.Ok()) return Failed(result);
                     whole = found.size() < count;
                     Took(std::move(found), place);
                 });
    if (!asked) lblActs.SetCaption("No ledger is open.");
}

void ActList::Clear(const std::string& words) {
    page.Drop();
    newer.Drop();
    again = againAll = listed = whole = false;
    acts.clear();
    news = 0;
    more = false;
    newest = 0;
    tblActs.SetAll({});
    SayNew();
    lblActs.SetCaption(words);
    if (onChosen) onChosen();
}

void ActList::Home() {
    const bool nothingNew = news == 0 && !acts.empty() && acts.front().number == newest;
    if (!nothingNew) List(search, {});
}

void ActList::Took(std::vector<ActRow> found, const Place& place) {
    listed = true;
    if (!found.empty()) newest = found.front().number;
    Show(found);
    for (std::size_t index = 0; place.chosen != 0 && index < acts.size(); ++index)
        if (acts[index].number == place.chosen) tblActs.Choose(static_cast<int>(index));
    if (place.top != 0) Written(); // what has come since then
}

void ActList::Show(const std::vector<ActRow>& found) {
    std::vector<TableBox::Line> lines;
    for (const auto& act : found) lines.push_back(LineOf(act));
    acts.insert(acts.end(), found.begin(), found.end());
    if (acts.size() > Most) {
        const auto gone = acts.size() - Most;
        acts.erase(acts.begin(), acts.begin() + static_cast<std::ptrdiff_t>(gone));
        const bool hadChosen = tblActs.Index() >= 0;
        tblActs.RemoveFirst(static_cast<int>(gone));
        if (hadChosen && !Chosen() && onChosen) onChosen();
    }
    tblActs.Add(std::move(lines));
    const auto count = static_cast<std::int64_t>(acts.size());
    lblActs.SetCaption(acts.empty() ? "No act was found."
                       : whole      ? Counted(count, "act") + "."
                                    : Counted(count, "act") + " so far.");
}

void ActList::Further() {
    if (!listed || whole || page.UnderWay() || acts.empty()) return;
    page.Ask([wanted = search, before = acts.back().number](
                 Connection& connection) { return FindActs(connection, wanted, before, PageSize); },
             [this](const DatabaseResult& result, const std::vector<ActRow>& found) {
                 if (!result.Ok()) return Failed(result);
                 whole = found.size() < PageSize;
                 Show(found);
             });
}

void ActList::Written() {
    if (listed) LookAgain(false);
}

void ActList::Refresh() {
    if (listed) LookAgain(true);
}

/// Those that wait for their answer are looked at again, or `all` of the newest that are listed.
void ActList::LookAgain(bool all) {
    if (newer.UnderWay()) {
        again = true;
        againAll = againAll || all;
        return;
    }
    std::vector<std::int64_t> numbers;
    for (const auto& act : acts)
        if (numbers.size() < LongestPage && (all || act.outcome == ActOutcome::Open))
            numbers.push_back(act.number);
    struct Seen {
        std::vector<ActRow> first;
        std::vector<ActRow> listed;
    };
    newer.Ask(
        [wanted = search, numbers](Connection& connection) {
            Seen seen;
            seen.first = FindActs(connection, wanted, 0, PageSize);
            for (const auto number : numbers)
                if (auto act = ReadAct(connection, number)) seen.listed.push_back(std::move(*act));
            return seen;
        },
        [this](const DatabaseResult& result, const Seen& seen) {
            if (!result.Ok()) return Failed(result);
            for (const auto& act : seen.listed) {
                const auto at = std::lower_bound(
                    acts.begin(), acts.end(), act.number,
                    [](const ActRow& one, std::int64_t number) { return one.number > number; });
                if (at == acts.end() || at->number != act.number || SameState(*at, act)) continue;
                *at = act;
                const auto index = static_cast<int>(at - acts.begin());
                tblActs.Set(index, LineOf(act, tblActs.At(index).tick));
                if (index == tblActs.Index() && onChosen) onChosen();
            }
            if (acts.empty() && !seen.first.empty()) { // nothing that could move
                whole = seen.first.size() < PageSize;
                Took(seen.first, {});
            }
            const auto since = [this](const ActRow& act) { return act.number > newest; };
            const auto came =
                static_cast<std::size_t>(std::count_if(seen.first.begin(), seen.first.end(), since));
            news += came;
            more = more || came == PageSize;
            if (!seen.first.empty()) newest = std::max(newest, seen.first.front().number);
            SayNew();
            if (std::exchange(again, false)) LookAgain(std::exchange(againAll, false));
        });
}

void ActList::SayNew() {
    lblNew.SetCaption(Counted(static_cast<std::int64_t>(news), "") + (more ? " or more new" : " new"));
    lblNew.SetVisible(news > 0);
}

const ActRow* ActList::Chosen() const {
    const auto index = tblActs.Index();
    return index < 0 ? nullptr : &acts[static_cast<std::size_t>(index)];
}

std::vector<std::int64_t> ActList::Ticked() const {
    std::vector<std::int64_t> numbers;
    for (const auto index : tblActs.TickedLines())
        numbers.insert(numbers.begin(), acts[static_cast<std::size_t>(index)].number);
    return numbers;
}

std::string ActList::Copied() const {
    auto lines = tblActs.TickedLines();
    if (lines.empty() && tblActs.Index() >= 0) lines.push_back(tblActs.Index());
    std::string text;
    for (const auto index : lines) {
        const auto& cells = tblActs.At(index).cells;
        for (std::size_t cell = 0; cell < cells.size(); ++cell) text += (cell == 0 ? "" : "\t") + cells[cell];
        text += "\r\n";
    }
    return text;
}

} // namespace halyard
