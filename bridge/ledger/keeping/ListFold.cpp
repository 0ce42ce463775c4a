#include "bridge/ledger/keeping/ListFold.h"

#include "base/Text.h"
#include "bridge/ledger/Schema.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr auto EjectsNumber = static_cast<std::int64_t>(ListName::Ejects);

std::vector<std::string> Sorted(std::vector<std::string> entries) {
    std::sort(entries.begin(), entries.end());
    return entries;
}

} // namespace

std::string PlaceWords(ListPlace place) {
    if (place.first == 0) return "options";
    return place.first == EjectsNumber ? "eject list of room " + std::to_string(place.second)
                                       : "list " + std::to_string(place.first);
}

FoldedList::FoldedList(std::string_view entries) {
    for (const auto& entry : Split(entries, "\n")) Add(entry);
}

bool FoldedList::Add(const std::string& entry) { return places.emplace(entry, next++).second; }

bool FoldedList::Change(const std::string& key, const std::string* before, const std::string* after) {
    const bool fits = before ? Remove(key + "\t" + *before) : true;
    return (!after || Add(key + "\t" + *after)) && fits;
}

std::vector<std::string> FoldedList::Entries() const {
    std::vector<std::pair<std::int64_t, std::string>> ordered;
    for (const auto& [entry, place] : places) ordered.emplace_back(place, entry);
    std::sort(ordered.begin(), ordered.end());
    std::vector<std::string> entries;
    for (auto& [place, entry] : ordered) entries.push_back(std::move(entry));
    return entries;
}

void ListFold::Run(Connection& file, std::int64_t upTo) {
    auto& whole =
        file.Prepare("SELECT w.id, w.after_change, w.run, w.list, w.room, w.begins, c.entries, c.id, w.at "
                     "FROM wholes w LEFT JOIN contents c ON c.id = w.content "
                     "WHERE w.id > ? AND w.after_change <= ? ORDER BY w.after_change, w.id");
    auto& change = file.Prepare("SELECT id, run, list, room, op, entry, before, after FROM changes "
                                "WHERE id > ? AND id <= ? ORDER BY id");
    auto& gap = file.Prepare("SELECT id, after_change, at FROM gaps WHERE id > ? AND after_change <= ? "
                             "ORDER BY after_change, id");
    bool hasWhole = whole.Bind(1, lastWhole).Bind(2, upTo).Step();
    bool hasChange = change.Bind(1, lastChange).Bind(2, upTo).Step();
    bool hasGap = gap.Bind(1, lastGap).Bind(2, upTo).Step();
    while (hasWhole || hasChange || hasGap) {
        const auto next = hasChange ? change.Integer(0) : std::numeric_limits<std::int64_t>::max();
        const bool gapComes = hasGap && gap.Integer(1) < next;
        const bool wholeComes = hasWhole && whole.Integer(1) < next;
        if (gapComes && (!wholeComes || gap.Integer(1) < whole.Integer(1) ||
                         (gap.Integer(1) == whole.Integer(1) && gap.Integer(2) <= whole.Integer(8)))) {
            for (auto& [place, state] : states) state.known = false;
            begun = 0;
            lastGap = gap.Integer(0);
            hasGap = gap.Step();
        } else if (wholeComes) {
            TakeWhole(whole);
            lastWhole = whole.Integer(0);
            hasWhole = whole.Step();
        } else {
            TakeChange(change);
            lastChange = next;
            hasChange = change.Step();
        }
    }
    whole.Reset();
    change.Reset();
    gap.Reset();
}

ListFold::State& ListFold::StateOf(ListPlace place, std::int64_t ofRun) {
    auto& state = states[place];
    if (state.run == ofRun) return state;
    return state = {{}, ofRun, begun == ofRun && place.first == EjectsNumber};
}

void ListFold::TakeWhole(Statement& whole) {
    run = whole.Integer(2);
    const ListPlace place{whole.Integer(3), whole.Integer(4)};
    if (place.first == 0) begun = run;
    auto& state = StateOf(place, run);
    FoldedList content(whole.Blob(6));
    if (whole.IsNull(7)) return Found(state, "A whole content of the " + PlaceWords(place) + " is missing.");
    if (state.known && whole.Integer(5) == 0) {
        auto folded = state.list.Entries();
        auto written = content.Entries();
        // Options have no order.
        const bool same = place.first == 0 ? Sorted(folded) == Sorted(written) : folded == written;
        if (!same)
            Found(state, "The changes up to " + std::to_string(whole.Integer(1)) + " don't make the " +
                             PlaceWords(place) + " what it was then.");
    }
    state.list = std::move(content);
    state.known = true;
}

void ListFold::TakeChange(Statement& change) {
    if (change.Integer(1) < run && onFinding)
        onFinding("Change " + std::to_string(change.Integer(0)) + " stands behind those of a later run.");
    run = change.Integer(1);
    const ListPlace place{change.Integer(2), change.Integer(3)};
    auto& state = StateOf(place, run);
    if (!state.known) return;
    const auto entry = change.Text(5);
    bool fits = true;
    switch (static_cast<ChangeOp>(change.Integer(4))) {
    case ChangeOp::Added: fits = state.list.Add(entry); break;
    case ChangeOp::Removed: fits = state.list.Remove(entry); break;
    case ChangeOp::Cleared: state.list.Clear(); break;
    case ChangeOp::Option: {
        const auto before = change.Text(6), after = change.Text(7);
        fits = state.list.Change(entry, change.IsNull(6) ? nullptr : &before,
                                 change.IsNull(7) ? nullptr : &after);
        break;
    }
    }
    if (!fits)
        Found(state, "Change " + std::to_string(change.Integer(0)) + " doesn't fit the " + PlaceWords(place) +
                         " as it was.");
}

void ListFold::Found(State& state, const std::string& words) {
    state.known = false;
    if (onFinding) onFinding(words);
}

std::map<ListPlace, FoldedList> ListFold::Lists() const {
    std::map<ListPlace, FoldedList> lists;
    for (const auto& [place, state] : states)
        if (state.known && state.run == run) lists.emplace(place, state.list);
    return lists;
}

const FoldedList* ListFold::Find(ListPlace place) const {
    const auto found = states.find(place);
    return found != states.end() && found->second.known && found->second.run == run ? &found->second.list
                                                                                    : nullptr;
}

} // namespace halyard
