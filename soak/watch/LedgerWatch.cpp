#include "soak/watch/LedgerWatch.h"

#include "base/Text.h"
#include "bridge/ledger/DeskLists.h"
#include "bridge/ledger/Texts.h"
#include "bridge/ledger/keeping/Verify.h"
#include "oscar/TillerSock.h"
#include "soak/Plan.h"
#include "soak/TapDatabase.h"
#include "soak/Time.h"
#include "state/Options.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace halyard {

namespace {

constexpr auto Ejects = static_cast<std::int64_t>(ListName::Ejects);
/// Keystrokes at one control are told as one change within two seconds.
constexpr std::int64_t longestTyping = 3 * second;

std::vector<std::string> Sorted(std::vector<std::string> entries) {
    std::sort(entries.begin(), entries.end());
    return entries;
}

} // namespace

LedgerWatch::LedgerWatch(DatabaseTap& tap, Options& options, const SoakPlan& plan,
                         std::function<void()> flush)
    : tap(tap), options(options), faults(plan.faults), flush(std::move(flush)), chance(plan.seed) {
    fold.onFinding = [this](const std::string& words) { Find(words); };
    acts.onFinding = [this](const std::string& words) { Find(words); };
    acts.faultless = faults == 0;
}

void LedgerWatch::Find(const std::string& words) {
    if (finding.empty()) finding = words;
}

/// Some of the faults last so long that batches are given up, which makes a gap.
void LedgerWatch::BreakDisk(std::int64_t now) {
    if (faults == 0 || now < nextFault) return;
    constexpr DatabaseFault kinds[] = {DatabaseFault::Full, DatabaseFault::Locked, DatabaseFault::Failed};
    const bool begins = nextFault != 0 && tap.fault == DatabaseFault::None;
    tap.fault = begins ? kinds[chance.Between(0, 2)] : DatabaseFault::None;
    nextFault = now + (begins ? chance.Between(1, 2 * minute) : chance.Between(1, 10 * hour / faults));
}

std::string LedgerWatch::Check(std::int64_t now) {
    BreakDisk(now);
    const bool all = now >= nextLook;
    if ((!tap.written && !all) || tap.fault != DatabaseFault::None) return finding;
    flush(); // what was told behind the batch in the same event
    tap.written = false;
    tap.Read([&](Connection& file) {
        Look(file, all, now);
        if (file.Failed()) Find("the ledger can't be read: " + file.Result().words);
    });
    if (all) nextLook = now + (differs ? longestTyping : hour);
    return finding;
}

void LedgerWatch::Look(Connection& file, bool all, std::int64_t now) {
    const auto lost = LostFacts(file);
    fold.Run(file);
    acts.Look(file, lost);
    LearnRooms(file);
    const auto changed = ChangedPlaces(file);
    CompareLists(changed, all || lost > 0);
    if (all || lost > 0 || changed.contains({0, 0})) CompareOptions(now);
}

std::int64_t LedgerWatch::LostFacts(Connection& file) {
    std::int64_t lost = 0;
    auto& gaps = file.Prepare("SELECT id, facts FROM gaps WHERE id > ?");
    gaps.Bind(1, lastGap);
    while (gaps.Step()) {
        lastGap = gaps.Integer(0);
        lost += gaps.Integer(1);
    }
    gaps.Reset();
    return lost;
}

std::set<ListPlace> LedgerWatch::ChangedPlaces(Connection& file) {
    std::set<ListPlace> places;
    auto& changes = file.Prepare("SELECT id, list, room FROM changes WHERE id > ?");
    changes.Bind(1, lastChange);
    while (changes.Step()) {
        lastChange = std::max(lastChange, changes.Integer(0));
        places.emplace(changes.Integer(1), changes.Integer(2));
    }
    changes.Reset();
    return places;
}

void LedgerWatch::LearnRooms(Connection& file) {
    auto& row = file.Prepare("SELECT id, key, exchange FROM rooms WHERE id > ?");
    row.Bind(1, lastRoom);
    while (row.Step()) {
        lastRoom = std::max(lastRoom, row.Integer(0));
        rooms[{row.Text(1), row.Integer(2)}] = row.Integer(0);
    }
    row.Reset();
}

/// Those that changed whole, and the others too with `all`; else how long they are.
void LedgerWatch::CompareLists(const std::set<ListPlace>& changed, bool all) {
    std::int64_t number = 0;
    for (const auto* list : options.Lists()) {
        const ListPlace place{++number, 0};
        Compare(place, *list, all || changed.contains(place));
    }
    std::set<ListPlace> seen;
    for (const auto& list : options.Control().EjectLists) {
        const auto row = rooms.find({KeptText(NormalizeName(list->ChatName)), list->Exchange});
        const ListPlace place{Ejects, row == rooms.end() ? 0 : row->second};
        // Of several lists of one room the first is the room's.
        if (seen.insert(place).second) Compare(place, list->GetEjects(), all || changed.contains(place));
    }
    for (const auto& [key, row] : rooms) {
        const auto* folded = fold.Find({Ejects, row});
        if (folded && folded->Count() > 0 && !seen.contains({Ejects, row}))
            Find("the ledger has an eject list that isn't there: " + key.first);
    }
}

template <typename List>
void LedgerWatch::Compare(ListPlace place, const List& list, bool whole) {
    const auto* folded = fold.Find(place);
    if (!folded && (place.first != Ejects || list.Count() > 0))
        return Find("the ledger knows nothing of the " + PlaceWords(place));
    if (!folded) return;
    bool same = folded->Count() == static_cast<std::size_t>(list.Count());
    if (same && whole) {
        std::vector<std::string> entries;
        for (const auto& entry : list) entries.push_back(KeptEntry(entry));
        same = entries == folded->Entries();
    }
    if (!same) Find("the ledger's " + PlaceWords(place) + " isn't the desk's");
}

void LedgerWatch::CompareOptions(std::int64_t now) {
    const auto whole = OptionWatch(options).Whole();
    std::vector<std::string> entries;
    std::string_view rest = whole.text;
    for (const auto length : whole.lengths) {
        entries.push_back(KeptEntry(rest.substr(0, length)));
        rest.remove_prefix(length);
    }
    const auto* folded = fold.Find({0, 0});
    const auto known = folded ? Sorted(folded->Entries()) : std::vector<std::string>();
    std::vector<std::string> differing;
    entries = Sorted(std::move(entries));
    std::set_symmetric_difference(entries.begin(), entries.end(), known.begin(), known.end(),
                                  std::back_inserter(differing));
    if (!differing.empty() && !differs) differsSince = now;
    differs = !differing.empty();
    if (differs && now - differsSince >= longestTyping)
        Find("the ledger's options aren't the desk's: " + differing[0]);
}

void LedgerWatch::Rest() { tap.fault = DatabaseFault::None; }

std::string LedgerWatch::CheckFile() const {
    std::string words;
    tap.Read([&](Connection& file) {
        for (const auto& finding : Verify(file)) words += words.empty() ? finding : "";
    });
    return words;
}

} // namespace halyard
