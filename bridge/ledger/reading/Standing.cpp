#include "bridge/ledger/reading/Standing.h"

#include "base/Collection.h"
#include "base/Text.h"
#include "bridge/ledger/Schema.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <utility>

namespace halyard {

namespace {

constexpr auto AllChanges = std::numeric_limits<std::int64_t>::max();
constexpr auto Ejects = static_cast<std::int64_t>(ListName::Ejects);

/// A list's whole content at some moment of a run.
struct Whole {
    std::int64_t run = 0;
    std::int64_t at = 0;
    std::int64_t afterChange = 0;
    std::string entries;
};

/// A change of the one entry, or one by which all entries went.
struct EntryTurn {
    std::int64_t run = 0;
    std::int64_t id = 0;
    std::int64_t at = 0;
    std::int64_t act = 0;
    bool stands = false;
};

/// By list and room.
using Lists = std::map<std::pair<std::int64_t, std::int64_t>, std::vector<EntryTurn>>;

bool Holds(const std::string& entries, std::string_view entry) {
    for (auto at = entries.find(entry); at != std::string::npos; at = entries.find(entry, at + 1)) {
        const auto end = at + entry.size();
        const bool begins = at == 0 || entries[at - 1] == '\n';
        if (begins && (end == entries.size() || entries[end] == '\n')) return true;
    }
    return false;
}

/// Takes columns list, room, run, id, at, act, op.
void Gather(Statement& rows, Lists& lists) {
    while (rows.Step())
        lists[{rows.Integer(0), rows.Integer(1)}].push_back(
            {rows.Integer(2), rows.Integer(3), rows.Integer(4), rows.Integer(5),
             rows.Integer(6) == static_cast<std::int64_t>(ChangeOp::Added)});
    rows.Reset();
}

/// Every list that has a whole content, with no turn yet.
Lists KnownLists(Connection& connection) {
    Lists lists;
    auto& rows = connection.Prepare("SELECT DISTINCT list, coalesce(room, 0) FROM wholes WHERE list > 0");
    while (rows.Step()) lists[{rows.Integer(0), rows.Integer(1)}];
    rows.Reset();
    return lists;
}

void GatherTurns(Connection& connection, std::string_view entry, std::int64_t person, Lists& lists) {
    auto& plain = connection.Prepare(
        "SELECT list, coalesce(room, 0), run, id, at, coalesce(act, 0), op FROM changes"
        " WHERE list BETWEEN 1 AND 8 AND (list <> 8 OR act IS NULL) AND entry = ?1 AND op <= 2");
    Gather(plain.Bind(1, entry), lists);
    auto& ejects =
        connection.Prepare("SELECT c.list, coalesce(c.room, 0), c.run, c.id, c.at, c.act, c.op FROM acts a"
                           " JOIN changes c ON c.act = a.id"
                           " WHERE a.person = ?1 AND c.list = ?2 AND c.entry = ?3 AND c.op <= 2");
    Gather(ejects.Bind(1, person).Bind(2, Ejects).Bind(3, entry), lists);
    Lists cleared;
    Gather(connection.Prepare("SELECT list, coalesce(room, 0), run, id, at, coalesce(act, 0), op FROM changes"
                              " WHERE op = 3"),
           cleared);
    for (const auto& [list, turns] : cleared) {
        const auto known = lists.find(list);
        if (known != lists.end()) known->second.insert(known->second.end(), turns.begin(), turns.end());
    }
}

/// The newest one of the run from before a change. A list of which the run has none began it empty.
Whole WholeIn(Connection& connection, std::int64_t list, std::int64_t room, std::int64_t run,
              std::int64_t beforeChange) {
    Whole whole{.run = run, .at = 0, .afterChange = 0, .entries = {}};
    auto& row = connection.Prepare("SELECT w.at, w.after_change, c.entries FROM wholes w"
                                   " JOIN contents c ON c.id = w.content WHERE w.list = ?1 AND"
                                   " coalesce(w.room, 0) = ?2 AND w.run = ?3 AND w.after_change < ?4"
                                   " ORDER BY w.id DESC LIMIT 1");
    row.Bind(1, list).Bind(2, room).Bind(3, run).Bind(4, beforeChange);
    if (row.Step()) {
        whole.at = row.Integer(0);
        whole.afterChange = row.Integer(1);
        whole.entries = row.Blob(2);
    }
    row.Reset();
    return whole;
}

std::int64_t LastRun(Connection& connection) {
    auto& row = connection.Prepare("SELECT max(id) FROM runs");
    const auto run = row.Step() ? row.Integer(0) : 0;
    row.Reset();
    return run;
}

/// How the entry stands after all turns. What was told before `whole` only says since when it stands.
std::optional<Standing> Fold(const Whole& whole, std::vector<EntryTurn> turns, std::string_view entry) {
    std::sort(turns.begin(), turns.end(),
              [](const EntryTurn& one, const EntryTurn& other) { return one.id < other.id; });
    std::optional<Standing> now;
    bool looked = false;
    const auto look = [&] {
        looked = true;
        if (!Holds(whole.entries, entry))
            now.reset();
        else if (!now)
            now.emplace().since = whole.at;
    };
    for (const auto& turn : turns) {
        if (!looked && turn.run >= whole.run && turn.id > whole.afterChange) look();
        if (!turn.stands) {
            now.reset();
        } else if (!now) {
            now.emplace().since = turn.at;
            now->wasSeen = true;
            now->act = turn.act;
        }
    }
    if (!looked) look();
    return now;
}

/// What one of the seven lists holds in that run just before a change.
std::vector<std::string> Folded(Connection& connection, ListName list, std::int64_t run,
                                std::int64_t before) {
    const auto number = static_cast<std::int64_t>(list);
    const auto whole = WholeIn(connection, number, 0, run, before);
    Collection<std::string> entries;
    for (auto& entry : Split(whole.entries, "\n")) entries.Add(entry, entry);
    auto& rows =
        connection.Prepare("SELECT op, entry FROM changes WHERE list = ?1 AND (list <> 8 OR act IS NULL)"
                           " AND id > ?2 AND id < ?3 AND run = ?4 ORDER BY id");
    rows.Bind(1, number).Bind(2, whole.afterChange).Bind(3, before).Bind(4, run);
    while (rows.Step()) {
        const auto entry = rows.Text(1);
        switch (static_cast<ChangeOp>(rows.Integer(0))) {
        case ChangeOp::Added: entries.Add(entry, entry); break;
        case ChangeOp::Removed: entries.Remove(entry); break;
        case ChangeOp::Cleared: entries.Clear(); break;
        case ChangeOp::Option: break;
        }
    }
    rows.Reset();
    return {entries.begin(), entries.end()};
}

} // namespace

std::vector<Standing> StandsOn(Connection& connection, std::string_view entry, std::int64_t person) {
    std::vector<Standing> standing;
    if (entry.empty()) return standing;
    auto lists = KnownLists(connection);
    GatherTurns(connection, entry, person, lists);
    const auto run = LastRun(connection);
    for (const auto& [list, turns] : lists) {
        if (list.first == Ejects && person == 0) continue;
        auto now = Fold(WholeIn(connection, list.first, list.second, run, AllChanges), turns, entry);
        if (!now) continue;
        now->list = static_cast<ListName>(list.first);
        now->room = list.second;
        auto& room =
            connection.Prepare("SELECT spelled, exchange FROM rooms WHERE id = ?").Bind(1, now->room);
        if (room.Step()) {
            now->roomName = room.Text(0);
            now->exchange = static_cast<std::int16_t>(room.Integer(1));
        }
        room.Reset();
        standing.push_back(*now);
    }
    return standing;
}

std::vector<std::string> ContentBefore(Connection& connection, ListName list, std::int64_t change) {
    auto& row = connection.Prepare("SELECT run FROM changes WHERE id = ?").Bind(1, change);
    const auto run = row.Step() ? row.Integer(0) : 0;
    row.Reset();
    return Folded(connection, list, run, change);
}

std::vector<std::string> ContentNow(Connection& connection, ListName list) {
    return Folded(connection, list, LastRun(connection), AllChanges);
}

} // namespace halyard
