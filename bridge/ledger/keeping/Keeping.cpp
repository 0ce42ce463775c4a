#include "bridge/ledger/keeping/Keeping.h"

#include "bridge/ledger/ActWords.h"
#include "bridge/ledger/keeping/Contents.h"
#include "bridge/ledger/keeping/ListFold.h"

#include <algorithm>
#include <vector>

namespace halyard {

namespace {

constexpr std::int64_t SampleMs = 60'000;
constexpr std::int64_t DayMs = std::int64_t{24} * 60 * 60 * 1000;

std::int64_t NumberOf(Connection& file, const char* sql, std::int64_t bound) {
    auto& row = file.Prepare(sql);
    const auto number = row.Bind(1, bound).Step() ? row.Integer(0) : 0;
    row.Reset();
    return number;
}

std::vector<std::int64_t> Numbers(Connection& file, const char* sql, std::int64_t bound) {
    std::vector<std::int64_t> numbers;
    auto& row = file.Prepare(sql);
    row.Bind(1, bound);
    while (row.Step()) numbers.push_back(row.Integer(0));
    row.Reset();
    return numbers;
}

void Run(Connection& file, const char* sql, std::int64_t number) { file.Prepare(sql).Bind(1, number).Step(); }

std::string Joined(const FoldedList& list) {
    std::string text;
    for (const auto& entry : list.Entries()) text += entry + "\n";
    if (!text.empty()) text.pop_back();
    return text;
}

constexpr const char* Changes =
    "DELETE FROM changes WHERE id IN (SELECT id FROM changes WHERE id <= ? ORDER BY id LIMIT 200)";
constexpr const char* Stages =
    "DELETE FROM stages WHERE id IN (SELECT id FROM stages WHERE at < ? ORDER BY id LIMIT 200)";
constexpr const char* LoneReplies =
    "DELETE FROM requests WHERE id IN (SELECT id FROM requests WHERE act IS NULL AND at < ? LIMIT 200)";
constexpr const char* Causes =
    "DELETE FROM causes WHERE id IN (SELECT id FROM causes WHERE id < ? ORDER BY id LIMIT 200)";
constexpr const char* Contents = "DELETE FROM contents WHERE id IN (SELECT id FROM contents WHERE id > ? AND "
                                 "id NOT IN (SELECT content FROM wholes) LIMIT 200)";

constexpr const char* OldSamples = "DELETE FROM samples WHERE minute IN (SELECT minute FROM samples WHERE "
                                   "minute < ? ORDER BY minute LIMIT 200)";
constexpr const char* OldAlarms =
    "DELETE FROM alarms WHERE id IN (SELECT id FROM alarms WHERE at < ? ORDER BY id LIMIT 200)";
constexpr const char* OldCounts = "DELETE FROM guard_counts WHERE day < ?";

/// The first cause that something which stays points at. Scopes around it have lower numbers than it.
std::int64_t FirstCause(Connection& file) {
    auto first = NumberOf(file, "SELECT min(cause) - ? FROM acts", 0);
    const auto ofChanges = NumberOf(file, "SELECT min(cause) - ? FROM changes", 0);
    if (ofChanges != 0) first = std::min(first, ofChanges);
    for (;;) {
        const auto around = NumberOf(file, "SELECT min(around) FROM causes WHERE id >= ?", first);
        if (around == 0 || around >= first) return first;
        first = around;
    }
}

} // namespace

Pruning::Pruning(const KeepDays& days, std::int64_t now)
    : textsBefore(days.texts > 0 ? now - days.texts * DayMs : 0),
      actsBefore(days.acts > 0 ? now - days.acts * DayMs : 0), samplesBefore(now - KeepDays::Samples * DayMs),
      alarmsBefore(now - KeepDays::Alarms * DayMs) {}

/// Numbers grow with time, but for a clock that was set back. The newest act and change stay, so that no
/// number is given out twice.
void Pruning::Begin(Connection& file) {
    begun = true;
    const auto boundary = [&](std::int64_t moment) {
        const auto first = NumberOf(file, "SELECT id FROM acts WHERE at >= ? ORDER BY id LIMIT 1", moment);
        return first != 0 ? first : NumberOf(file, "SELECT max(id) + ? FROM acts", 1);
    };
    const auto firstOfTexts = boundary(textsBefore);
    firstText = NumberOf(file, "SELECT min(cause) FROM acts WHERE id >= ?", firstOfTexts);
    if (firstText == 0) firstText = NumberOf(file, "SELECT max(id) + ? FROM causes", 1);
    firstAct = std::min(boundary(actsBefore), NumberOf(file, "SELECT max(id) - ? FROM acts", 0));
    const auto newest = NumberOf(file, "SELECT max(id) - ? FROM changes", 1);
    const auto kept = NumberOf(file, "SELECT id FROM changes WHERE at >= ? ORDER BY id LIMIT 1", actsBefore);
    cutChange = std::min(newest, kept == 0 ? newest : kept - 1);
}

bool Pruning::Step(Connection& file) {
    if (!begun) Begin(file);
    while (part != Part::Done && !file.Failed()) {
        const bool texts = textsBefore != 0, acts = actsBefore != 0;
        bool did = false;
        switch (part) {
        case Part::Causes: did = texts && PruneTexts(file); break;
        case Part::Evidence:
            did = texts && PruneRows(file,
                                     "DELETE FROM evidence WHERE id IN "
                                     "(SELECT id FROM evidence WHERE at < ? ORDER BY id LIMIT 200)",
                                     textsBefore);
            break;
        case Part::Appeals:
            did = texts && PruneRows(file,
                                     "UPDATE notes SET text = NULL WHERE id IN (SELECT id FROM notes WHERE "
                                     "kind = 2 AND text IS NOT NULL AND at < ? LIMIT 200)",
                                     textsBefore);
            break;
        case Part::Cut:
            if (acts) WriteCut(file);
            part = Part::Acts;
            if (acts) return true;
            continue;
        case Part::Acts: did = acts && PruneActs(file); break;
        case Part::Others: did = acts && PruneOthers(file); break;
        case Part::Watch: did = PruneWatch(file); break;
        case Part::Done: break;
        }
        if (did) return true;
        part = static_cast<Part>(static_cast<int>(part) + 1);
    }
    return false;
}

bool Pruning::PruneRows(Connection& file, const char* sql, std::int64_t bound) {
    file.Prepare(sql).Bind(1, bound).Step();
    rows += file.Changes();
    return file.Changes() > 0;
}

bool Pruning::PruneTexts(Connection& file) {
    auto& find = file.Prepare("SELECT id FROM causes WHERE id > ? AND id < ? AND "
                              "(line IS NOT NULL OR reason IS NOT NULL) ORDER BY id LIMIT 200");
    find.Bind(1, lastCause).Bind(2, firstText);
    std::vector<std::int64_t> found;
    while (find.Step()) found.push_back(find.Integer(0));
    find.Reset();
    int touched = 0;
    for (const auto cause : found) {
        if (touched >= StepRows) break;
        const auto acts = Numbers(file, "SELECT id FROM acts WHERE cause = ?", cause);
        for (const auto act : acts) TakeOutWords(file, act);
        Run(file, "UPDATE causes SET line = NULL, reason = NULL WHERE id = ?", cause);
        for (const auto act : acts) PutInWords(file, act);
        lastCause = cause;
        touched += 1 + static_cast<int>(acts.size());
    }
    rows += touched;
    return touched > 0;
}

/// What every list was at the cut takes the place of all whole contents before it. Their numbers are below
/// those of the ones that stay, as if they had been written then.
void Pruning::WriteCut(Connection& file) {
    if (cutChange <= 0) return;
    ListFold fold;
    fold.Run(file, cutChange);
    const auto at = NumberOf(file, "SELECT at FROM changes WHERE id = ?", cutChange);
    Run(file, "DELETE FROM gaps WHERE after_change < ?", cutChange);
    Run(file, "DELETE FROM wholes WHERE after_change < ?", cutChange);
    auto number = std::min<std::int64_t>(NumberOf(file, "SELECT min(id) - ? FROM wholes", 0), 1);
    for (const auto& [place, list] : fold.Lists()) {
        PutWhole(file,
                 {fold.LastRun(), at, cutChange, static_cast<ListName>(place.first), place.second, true},
                 Joined(list));
        const auto written = file.LastRow();
        auto& move = file.Prepare("UPDATE wholes SET id = ? WHERE id = ?");
        move.Bind(1, --number).Bind(2, written).Step();
    }
}

bool Pruning::PruneActs(Connection& file) {
    const auto acts = Numbers(file, "SELECT id FROM acts WHERE id < ? ORDER BY id LIMIT 50", firstAct);
    for (const auto act : acts) {
        TakeOutWords(file, act);
        for (const auto* sql : {"DELETE FROM evidence WHERE act = ?", "DELETE FROM requests WHERE act = ?",
                                "UPDATE changes SET act = NULL WHERE act = ?"})
            Run(file, sql, act);
        Run(file, "DELETE FROM acts WHERE id = ?", act);
    }
    if (acts.empty()) return false;
    rows += static_cast<std::int64_t>(acts.size());
    return true;
}

bool Pruning::PruneOthers(Connection& file) {
    return PruneRows(file, Changes, cutChange) || PruneRows(file, Stages, actsBefore) ||
           PruneRows(file, LoneReplies, actsBefore) || PruneRows(file, Causes, FirstCause(file)) ||
           PruneRows(file, Contents, 0);
}

bool Pruning::PruneWatch(Connection& file) {
    return PruneRows(file, OldSamples, samplesBefore / SampleMs) ||
           PruneRows(file, OldAlarms, alarmsBefore) || PruneRows(file, OldCounts, alarmsBefore / DayMs);
}

} // namespace halyard
