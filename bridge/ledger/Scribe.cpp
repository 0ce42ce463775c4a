#include "bridge/ledger/Scribe.h"

#include "base/Latin1.h"
#include "bridge/ledger/ActWords.h"
#include "bridge/ledger/Texts.h"
#include "bridge/ledger/keeping/Contents.h"

#include <variant>

namespace halyard {

namespace {

constexpr std::size_t MostOrigins = 4096;
/// Request ids are given out anew after so many; older acts wait for nothing.
constexpr std::int64_t MostOpen = 65'536;

std::int64_t Newest(Connection& file, const char* sql) {
    auto& newest = file.Prepare(sql);
    const auto id = newest.Step() ? newest.Integer(0) : 0;
    newest.Reset();
    return id;
}

/// The text, or null for an empty one.
Statement& BindText(Statement& statement, int position, const std::string& utf8) {
    return utf8.empty() ? statement.BindNull(position) : statement.Bind(position, utf8);
}

Statement& BindMaybe(Statement& statement, int position, const MaybeText& text) {
    return text ? statement.Bind(position, KeptEntry(*text)) : statement.BindNull(position);
}

bool IsOp(CauseKind kind) { return kind == CauseKind::OpLine || kind == CauseKind::OpIM; }

} // namespace

Scribe::Began Scribe::Begin(Connection& file, std::int64_t at, const std::string& version) {
    ids.Forget();
    began.acts = Newest(file, "SELECT max(id) FROM acts");
    began.causes = Newest(file, "SELECT max(id) FROM causes");
    auto& lost = file.Prepare("UPDATE acts SET outcome = ? WHERE outcome = 0 AND id > ?");
    lost.Bind(1, static_cast<int>(ActOutcome::Lost)).Bind(2, began.acts - MostOpen).Step();
    file.Prepare("INSERT INTO runs(began, version) VALUES(?, ?)")
        .Bind(1, at)
        .Bind(2, KeptText(version))
        .Step();
    began.run = file.LastRow();
    return began;
}

void Scribe::Write(Connection& file, const std::vector<Fact>& facts, bool fresh) {
    if (fresh) {
        ids.Forget();
        origins.clear();
        requests.clear();
    }
    for (const auto& fact : facts) {
        if (file.Failed()) return;
        std::visit([&](const auto& kind) { Put(file, kind); }, fact);
    }
}

void Scribe::Put(Connection& file, const CauseFact& fact) {
    const auto who = ids.Person(file, fact.who);
    const auto rule = ids.Rule(file, fact.rule, fact.entry);
    const auto room = ids.Room(file, fact.room);
    auto& add = file.Prepare("INSERT INTO causes(id, kind, who, room, rule, entry, line, reason, around) "
                             "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?)");
    add.Bind(1, Cause(fact.number)).Bind(2, static_cast<int>(fact.kind));
    BindId(BindId(BindId(add, 3, who), 4, room), 5, rule);
    BindText(add, 6, rule != 0 ? std::string() : KeptText(fact.entry));
    BindText(BindText(add, 7, KeptText(fact.line)), 8, KeptText(fact.reason));
    BindId(add, 9, Cause(fact.around)).Step();
}

/// Of a cause that a gap took there is a row from here on that says so.
Scribe::Origin Scribe::OriginOf(Connection& file, std::int64_t cause) {
    if (const auto known = origins.find(cause); known != origins.end()) return known->second;
    if (origins.size() >= MostOrigins) origins.clear();
    Origin origin;
    bool found = false;
    for (auto next = cause; next != 0;) {
        auto& row = file.Prepare("SELECT kind, who, rule, around FROM causes WHERE id = ?");
        if (!row.Bind(1, next).Step()) break;
        found = true;
        if (origin.op == 0 && IsOp(static_cast<CauseKind>(row.Integer(0)))) origin.op = row.Integer(1);
        if (origin.rule == 0) origin.rule = row.Integer(2);
        const auto around = row.Integer(3);
        next = around < next ? around : 0;
        row.Reset();
    }
    if (!found) file.Prepare("INSERT INTO causes(id, kind) VALUES(?, 0)").Bind(1, cause).Step();
    return origins[cause] = origin;
}

void Scribe::Put(Connection& file, const ActFact& fact) {
    const auto cause = Cause(fact.cause);
    const auto [op, rule] = OriginOf(file, cause);
    const auto person = ids.Person(file, fact.person);
    const auto room = ids.Room(file, fact.room);
    auto& add =
        file.Prepare("INSERT INTO acts(id, run, at, cause, kind, person, room, op, rule, list, entry, "
                     "undoes, outcome, code) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    add.Bind(1, Act(fact.number)).Bind(2, began.run).Bind(3, fact.at).Bind(4, cause);
    add.Bind(5, static_cast<int>(fact.kind));
    BindId(BindId(BindId(BindId(add, 6, person), 7, room), 8, op), 9, rule);
    BindId(add, 10, static_cast<int>(fact.list));
    BindId(BindText(add, 11, KeptEntry(fact.entry)), 12, fact.undoes);
    BindId(add.Bind(13, static_cast<int>(fact.outcome)), 14, fact.code).Step();
    PutInWords(file, Act(fact.number));
}

void Scribe::Put(Connection& file, const StepFact& fact) {
    using enum StepFact::Step;
    const auto act = Act(fact.act);
    if (fact.step == Asked) PutRequest(file, fact, act);
    if (fact.step == Answered) AnswerRequest(file, fact, act);
    if (act == 0) return;
    if (fact.step == Queued || fact.step == Asked) {
        auto& wait = file.Prepare(fact.step == Queued ? "UPDATE acts SET queued = ? WHERE id = ?"
                                                      : "UPDATE acts SET asked = ? WHERE id = ?");
        wait.Bind(1, fact.after).Bind(2, act).Step();
        return;
    }
    auto& end = file.Prepare("UPDATE acts SET answered = ?, outcome = ?, code = ? WHERE id = ?");
    if (fact.step == Answered)
        end.Bind(1, fact.after);
    else
        end.BindNull(1);
    BindId(end.Bind(2, static_cast<int>(fact.outcome)), 3, fact.code).Bind(4, act).Step();
    requests.erase(act);
}

void Scribe::PutRequest(Connection& file, const StepFact& fact, std::int64_t act) {
    const auto room = ids.Room(file, fact.room);
    auto& add = file.Prepare("INSERT INTO requests(run, room, wire, act, at) VALUES(?, ?, ?, ?, ?)");
    BindId(BindId(add.Bind(1, began.run), 2, room).Bind(3, fact.wire), 4, act).Bind(5, fact.at).Step();
    if (requests.size() >= MostOrigins) requests.clear();
    requests[act] = file.LastRow();
}

void Scribe::AnswerRequest(Connection& file, const StepFact& fact, std::int64_t act) {
    const auto verdict = static_cast<int>(fact.outcome);
    if (act == 0) {
        const auto room = ids.Room(file, fact.room);
        auto& add = file.Prepare("INSERT INTO requests(run, room, wire, at, verdict, word) "
                                 "VALUES(?, ?, ?, ?, ?, ?)");
        BindId(add.Bind(1, began.run), 2, room).Bind(3, fact.wire).Bind(4, fact.at).Bind(5, verdict);
        BindId(add, 6, fact.code).Step();
        return;
    }
    auto row = requests[act];
    if (row == 0) {
        auto& find = file.Prepare("SELECT id FROM requests WHERE act = ?");
        if (find.Bind(1, act).Step()) row = find.Integer(0);
        find.Reset();
    }
    auto& answer = file.Prepare("UPDATE requests SET verdict = ?, word = ? WHERE id = ?");
    BindId(answer.Bind(1, verdict), 2, fact.code).Bind(3, row).Step();
}

void Scribe::Put(Connection& file, const UndoneFact& fact) {
    auto& done = file.Prepare("UPDATE acts SET undone = ? WHERE id = ?");
    done.Bind(1, fact.by).Bind(2, fact.act).Step();
}

void Scribe::Put(Connection& file, const ChangeFact& fact) {
    const auto cause = Cause(fact.cause);
    OriginOf(file, cause);
    const auto room = ids.Room(file, fact.room);
    auto& add = file.Prepare("INSERT INTO changes(run, at, act, cause, list, room, op, entry, before, after) "
                             "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    BindId(add.Bind(1, began.run).Bind(2, fact.at), 3, Act(fact.act)).Bind(4, cause);
    BindId(add.Bind(5, static_cast<int>(fact.list)), 6, room).Bind(7, static_cast<int>(fact.op));
    BindText(add, 8, KeptEntry(fact.entry));
    BindMaybe(BindMaybe(add, 9, fact.before), 10, fact.after).Step();
}

void Scribe::Put(Connection& file, const WholeFact& fact) {
    std::string entries;
    std::string_view rest = fact.entries.text;
    for (const auto length : fact.entries.lengths) {
        entries += KeptEntry(rest.substr(0, length)) += '\n';
        rest.remove_prefix(length);
    }
    if (!entries.empty()) entries.pop_back();
    const WholeRow whole{began.run,
                         fact.at,
                         Newest(file, "SELECT max(id) FROM changes"),
                         fact.list,
                         ids.Room(file, fact.room),
                         fact.begins};
    PutWhole(file, whole, entries);
}

void Scribe::Put(Connection& file, const ConnectionFact& fact) {
    const auto account = ids.Account(file, fact.network, fact.account);
    auto& add =
        file.Prepare("INSERT INTO stages(run, at, account, socket, stage, text) VALUES(?, ?, ?, ?, ?, ?)");
    BindId(add.Bind(1, began.run).Bind(2, fact.at), 3, account).Bind(4, fact.socket);
    BindText(add.Bind(5, static_cast<int>(fact.stage)), 6, KeptText(fact.text)).Step();
}

void Scribe::Put(Connection& file, const EvidenceFact& fact) {
    const auto room = ids.Room(file, fact.room);
    auto& add = file.Prepare("INSERT INTO evidence(act, at, room, line) VALUES(?, ?, ?, ?)");
    BindId(add.Bind(1, Act(fact.act)).Bind(2, fact.at), 3, room).Bind(4, KeptText(fact.line)).Step();
}

void Scribe::Put(Connection& file, const NoteFact& fact) {
    const auto person = ids.Person(file, fact.person);
    const auto author = ids.Person(file, fact.author);
    auto& add = file.Prepare("INSERT INTO notes(person, at, author, kind, text) VALUES(?, ?, ?, ?, ?)");
    BindId(add.Bind(1, person).Bind(2, fact.at), 3, author);
    add.Bind(4, static_cast<int>(fact.kind)).Bind(5, KeptText(fact.text)).Step();
}

void Scribe::Put(Connection& file, const GapFact& fact) {
    const auto after = Newest(file, "SELECT max(id) FROM changes");
    auto& add = file.Prepare("INSERT INTO gaps(run, at, until, after_change, facts) VALUES(?, ?, ?, ?, ?)");
    add.Bind(1, began.run).Bind(2, fact.at).Bind(3, fact.until).Bind(4, after).Bind(5, fact.facts).Step();
}

void Scribe::Put(Connection& file, const RunEndFact& fact) {
    file.Prepare("UPDATE runs SET ended = ? WHERE id = ?").Bind(1, fact.at).Bind(2, began.run).Step();
}

/// A clock that was set back comes by a minute twice: the later one counts.
void Scribe::Put(Connection& file, const SampleFact& fact) {
    auto& add =
        file.Prepare("INSERT OR REPLACE INTO samples VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                     "?, ?, ?, ?)");
    int position = 0;
    add.Bind(++position, fact.minute);
    for (const int value :
         {fact.online, fact.rooms, fact.people, fact.ratedBans, fact.ratedLines, fact.heard, fact.said,
          fact.dropped, fact.linesWaiting, fact.bansWaiting, fact.byAutoban, fact.byAutoword, fact.byGhost,
          fact.byICQ, fact.byChars, fact.byOps, fact.byOthers})
        add.Bind(++position, static_cast<std::int64_t>(value));
    add.Step();
}

void Scribe::Put(Connection& file, const AlarmFact& fact) {
    file.Prepare("INSERT INTO alarms(at, kind, subject, reason, words) VALUES(?, ?, ?, ?, ?)")
        .Bind(1, fact.at)
        .Bind(2, std::int64_t{fact.kind})
        .Bind(3, ToUtf8(fact.subject))
        .Bind(4, std::int64_t{fact.reason})
        .Bind(5, ToUtf8(fact.words))
        .Step();
}

void Scribe::Put(Connection& file, const GuardFact& fact) {
    file.Prepare("INSERT INTO guard_counts VALUES(?, ?, ?, ?) "
                 "ON CONFLICT DO UPDATE SET count = count + excluded.count")
        .Bind(1, fact.day)
        .Bind(2, fact.guard)
        .Bind(3, std::int64_t{fact.acted})
        .Bind(4, fact.count)
        .Step();
}

} // namespace halyard
