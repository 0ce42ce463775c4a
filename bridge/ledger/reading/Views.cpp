#include "bridge/ledger/reading/Views.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/Lookalikes.h"
#include "bridge/ledger/reading/Moments.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

namespace halyard {

namespace {

constexpr std::size_t MostLookalikes = 50;
constexpr std::string_view StoneWord = "stone ";

std::string NameIn(const Statement& row, int id, int spelled) {
    return row.IsNull(spelled) ? std::string(StoneWord) + std::to_string(row.Integer(id)) : row.Text(spelled);
}

/// The name of a row of persons; nothing when there is no such row.
std::optional<std::string> PersonName(Connection& connection, std::int64_t person) {
    auto& row = connection.Prepare("SELECT id, spelled FROM persons WHERE id = ?").Bind(1, person);
    if (!row.Step()) return std::nullopt;
    auto name = NameIn(row, 0, 1);
    row.Reset();
    return name;
}

/// How many acts there are in the rows of a statement that counts them, and how many of them were taken back.
void Count(Statement& row, std::int64_t& acts, std::int64_t& takenBack) {
    if (!row.Step()) return;
    acts = row.Integer(0);
    takenBack = row.Integer(1);
    row.Reset();
}

std::vector<NoteLine> NotesOn(Connection& connection, std::int64_t person) {
    std::vector<NoteLine> notes;
    auto& rows = connection.Prepare("SELECT n.at, n.kind, n.author, p.spelled, n.text FROM notes n"
                                    " LEFT JOIN persons p ON p.id = n.author WHERE n.person = ?"
                                    " ORDER BY n.id DESC LIMIT 200");
    rows.Bind(1, person);
    while (rows.Step())
        notes.push_back({rows.Integer(0), static_cast<NoteKind>(rows.Integer(1)),
                         rows.IsNull(2) ? std::string() : NameIn(rows, 2, 3), rows.Text(4)});
    rows.Reset();
    return notes;
}

void AddLookalikes(Connection& connection, std::string_view skeleton, const PersonPage& page, bool same,
                   std::vector<Lookalike>& found) {
    auto& rows = connection.Prepare("SELECT id, spelled FROM persons WHERE skeleton = ?1 AND id <> ?2 AND"
                                    " key IS NOT NULL LIMIT 200");
    rows.Bind(1, skeleton).Bind(2, page.person);
    while (rows.Step())
        found.push_back({.person = rows.Integer(0), .name = rows.Text(1), .acts = 0, .same = same});
    rows.Reset();
}

std::vector<Lookalike> LookalikesOf(Connection& connection, const PersonPage& page,
                                    const std::string& skeleton) {
    std::vector<Lookalike> found;
    if (skeleton.empty()) return found;
    AddLookalikes(connection, ToUtf8(skeleton), page, true, found);
    for (const auto& edit : OneEditFrom(skeleton))
        AddLookalikes(connection, ToUtf8(edit), page, false, found);
    for (auto& lookalike : found) {
        auto& row =
            connection.Prepare("SELECT count(*) FROM acts WHERE person = ?").Bind(1, lookalike.person);
        if (row.Step()) lookalike.acts = row.Integer(0);
        row.Reset();
    }
    std::stable_sort(found.begin(), found.end(), [](const Lookalike& one, const Lookalike& other) {
        return one.same != other.same ? one.same : one.acts > other.acts;
    });
    if (found.size() > MostLookalikes) found.resize(MostLookalikes);
    return found;
}

void MostActiveFirst(std::vector<ActsOf>& all) {
    std::stable_sort(all.begin(), all.end(),
                     [](const ActsOf& one, const ActsOf& other) { return one.acts > other.acts; });
}

/// Takes columns person, spelled, acts, newest act.
std::vector<ActsOf> ReadPersons(Statement& rows) {
    std::vector<ActsOf> persons;
    while (rows.Step())
        persons.push_back({rows.Integer(0), NameIn(rows, 0, 1), rows.Integer(2), rows.Integer(3)});
    rows.Reset();
    return persons;
}

std::vector<ActsOf> HitBy(Connection& connection, std::int64_t rule) {
    auto& rows =
        connection.Prepare("SELECT p.id, p.spelled, h.acts, h.newest FROM (SELECT person, count(*) AS acts,"
                           " max(id) AS newest FROM acts WHERE rule = ? AND person IS NOT NULL"
                           " GROUP BY person ORDER BY newest DESC LIMIT 1000) h"
                           " JOIN persons p ON p.id = h.person ORDER BY h.newest DESC");
    return ReadPersons(rows.Bind(1, rule));
}

} // namespace

std::int64_t FindPerson(Connection& connection, std::string_view name) {
    std::int64_t person = 0;
    const auto key = NormalizeName(FromUtf8(name));
    auto& row = connection.Prepare("SELECT id FROM persons WHERE key = ?").Bind(1, ToUtf8(key));
    if (row.Step()) person = row.Integer(0);
    row.Reset();
    if (person != 0 || !name.starts_with(StoneWord)) return person;
    const auto* end = name.data() + name.size();
    const auto [stop, failure] = std::from_chars(name.data() + StoneWord.size(), end, person);
    return failure == std::errc() && stop == end && PersonName(connection, person) ? person : 0;
}

std::optional<PersonPage> ReadPerson(Connection& connection, std::int64_t person) {
    auto& row =
        connection.Prepare("SELECT id, spelled, key, skeleton FROM persons WHERE id = ?").Bind(1, person);
    if (!row.Step()) return std::nullopt;
    PersonPage page;
    page.person = person;
    page.name = NameIn(row, 0, 1);
    page.key = row.Text(2);
    const auto skeleton = FromUtf8(row.Text(3));
    row.Reset();
    Count(connection.Prepare("SELECT count(*), count(undone) FROM acts WHERE person = ?").Bind(1, person),
          page.acts, page.takenBack);
    page.standing = StandsOn(connection, page.key, person);
    page.notes = NotesOn(connection, person);
    page.lookalikes = LookalikesOf(connection, page, skeleton);
    return page;
}

std::vector<EvidenceLine> ReadEvidence(Connection& connection, std::int64_t act) {
    std::vector<EvidenceLine> lines;
    auto& rows = connection.Prepare("SELECT e.at, m.spelled, e.line FROM evidence e LEFT JOIN rooms m ON"
                                    " m.id = e.room WHERE e.act = ? AND e.line IS NOT NULL ORDER BY e.id");
    rows.Bind(1, act);
    while (rows.Step()) lines.push_back({rows.Integer(0), rows.Text(1), rows.Text(2)});
    rows.Reset();
    return lines;
}

std::optional<OpPage> ReadOp(Connection& connection, std::int64_t person, std::int64_t since) {
    const auto name = PersonName(connection, person);
    if (!name) return std::nullopt;
    OpPage page{.person = person, .name = *name, .all = {}, .days = {}};
    auto& rows =
        connection.Prepare("SELECT a.at, a.undone IS NOT NULL, coalesce(c.reason, '') = '' FROM acts a"
                           " LEFT JOIN causes c ON c.id = a.cause WHERE a.op = ?1 AND a.id >= ?2"
                           " ORDER BY a.id DESC");
    rows.Bind(1, person).Bind(2, FirstActSince(connection, since));
    // The calendar is asked once for the acts of one hour.
    constexpr std::int64_t hour = 3'600'000;
    std::int64_t lastHour = -1;
    std::string day;
    while (rows.Step()) {
        const auto thisHour = rows.Integer(0) / hour;
        if (thisHour != lastHour) {
            day = ShownDay(rows.Integer(0));
            lastHour = thisHour;
        }
        if (page.days.empty() || page.days.back().day != day) page.days.emplace_back().day = day;
        for (ActCounts* counts : {&page.all, static_cast<ActCounts*>(&page.days.back())}) {
            ++counts->acts;
            counts->takenBack += rows.Integer(1);
            counts->noReason += rows.Integer(2);
        }
    }
    rows.Reset();
    return page;
}

std::vector<ActsOf> ReadOps(Connection& connection) {
    auto ops =
        ReadPersons(connection.Prepare("SELECT p.id, p.spelled, h.acts, h.newest FROM (SELECT op, count(*) "
                                       "AS acts, max(id) AS newest FROM acts"
                                       " WHERE op IS NOT NULL GROUP BY op) h JOIN persons p ON p.id = h.op"));
    MostActiveFirst(ops);
    return ops;
}

std::vector<ActsOf> ReadRules(Connection& connection, std::string_view text) {
    const auto wanted = Lower(FromUtf8(text));
    auto& rows = connection.Prepare(
        "SELECT u.id, u.kind, u.entry, (SELECT count(*) FROM acts a WHERE a.rule = u.id),"
        " (SELECT max(id) FROM acts a WHERE a.rule = u.id) FROM rules u WHERE ?1 = 0 OR u.kind = ?2 OR"
        " instr(lower(u.entry), ?3) > 0");
    rows.Bind(1, wanted.empty() ? 0 : 1)
        .Bind(2, static_cast<std::int64_t>(RuleOfWord(wanted)))
        .Bind(3, ToUtf8(wanted));
    std::vector<ActsOf> rules;
    while (rows.Step())
        rules.push_back({rows.Integer(0), RuleName(static_cast<RuleKind>(rows.Integer(1)), rows.Text(2)),
                         rows.Integer(3), rows.Integer(4)});
    rows.Reset();
    MostActiveFirst(rules);
    return rules;
}

std::optional<RulePage> ReadRule(Connection& connection, std::int64_t rule) {
    auto& row = connection.Prepare("SELECT kind, entry FROM rules WHERE id = ?").Bind(1, rule);
    if (!row.Step()) return std::nullopt;
    RulePage page;
    page.rule = rule;
    page.kind = static_cast<RuleKind>(row.Integer(0));
    page.entry = row.Text(1);
    row.Reset();
    Count(connection.Prepare("SELECT count(*), count(undone) FROM acts WHERE rule = ?").Bind(1, rule),
          page.acts, page.takenBack);
    auto& newest =
        connection.Prepare("SELECT at FROM acts WHERE rule = ? ORDER BY id DESC LIMIT 1").Bind(1, rule);
    if (newest.Step()) page.lastHit = newest.Integer(0);
    newest.Reset();
    page.persons = HitBy(connection, rule);
    const auto list = ListOf(page.kind);
    const auto standing = StandsOn(connection, list == ListName::None ? std::string() : page.entry, 0);
    page.stands = std::any_of(standing.begin(), standing.end(),
                              [&](const Standing& place) { return place.list == list; });
    return page;
}

std::vector<NeverHit> ReadNeverHit(Connection& connection) {
    std::vector<NeverHit> never;
    for (const auto kind : {RuleKind::Autoban, RuleKind::Autoword}) {
        std::unordered_set<std::string> hit;
        auto& rows =
            connection.Prepare("SELECT entry FROM rules u WHERE kind = ? AND EXISTS(SELECT 1 FROM acts a"
                               " WHERE a.rule = u.id)");
        rows.Bind(1, static_cast<std::int64_t>(kind));
        while (rows.Step()) hit.insert(rows.Text(0));
        rows.Reset();
        for (auto& entry : ContentNow(connection, ListOf(kind)))
            if (hit.count(entry) == 0) never.push_back({kind, std::move(entry)});
    }
    return never;
}

ListName ListOf(RuleKind rule) {
    switch (rule) {
    case RuleKind::Autoban: return ListName::Autobans;
    case RuleKind::Autoword: return ListName::Autowords;
    case RuleKind::Lock: return ListName::LockBans;
    default: return ListName::None;
    }
}

} // namespace halyard
