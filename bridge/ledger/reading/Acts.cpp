#include "bridge/ledger/reading/Acts.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/IndexWords.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

namespace halyard {

namespace {

constexpr std::size_t LongestPage = 1000;
/// More rules, or rooms of one name, than this are no use in one question.
constexpr std::int64_t MostRules = 100;
constexpr std::int64_t NoEnd = std::numeric_limits<std::int64_t>::max();

constexpr const char* RowText =
    "SELECT a.id, a.at, a.run, a.kind, a.person, p.key, p.spelled, a.room, m.spelled, m.exchange, a.op, "
    "a.rule,"
    " u.kind, u.entry, c.kind, c.who, w.spelled, c.line, c.reason, c.entry, a.list, a.entry, a.outcome, "
    "a.code,"
    " a.asked, a.undoes, a.undone, o.spelled"
    " FROM acts a LEFT JOIN causes c ON c.id = a.cause LEFT JOIN persons p ON p.id = a.person"
    " LEFT JOIN rooms m ON m.id = a.room LEFT JOIN rules u ON u.id = a.rule"
    " LEFT JOIN persons w ON w.id = c.who LEFT JOIN persons o ON o.id = a.op WHERE a.id = ?";

std::string Joined(const char* what, const std::string& behind) {
    return behind.empty() ? std::string(what) : std::string(what) + " " + behind;
}

std::string NameOf(const Statement& row, std::int64_t person, int spelled) {
    if (person == 0) return {};
    return row.IsNull(spelled) ? "stone " + std::to_string(person) : row.Text(spelled);
}

std::string CauseWords(const ActRow& act, const std::string& who, const std::string& entry) {
    const auto said = act.line.empty() ? std::string() : ": " + act.line;
    switch (act.causeKind) {
    case CauseKind::OpLine: return who + said;
    case CauseKind::OpIM: return who + " by IM" + said;
    case CauseKind::Internal: return "internal command" + said;
    case CauseKind::Rule: return RuleName(act.ruleKind, act.ruleEntry.empty() ? entry : act.ruleEntry);
    case CauseKind::Hand: return entry.empty() ? "operator's hand" : "operator's hand on " + entry;
    case CauseKind::Load: return Joined("load of", entry);
    case CauseKind::Timer: return "a time that was over";
    case CauseKind::Reply: return "the service's answer";
    case CauseKind::Service: return "the service";
    case CauseKind::Undo: return "undo";
    case CauseKind::Answer: return who.empty() ? "an answer by IM" : "an answer by IM to " + who;
    case CauseKind::Guard: return Joined("guard", entry);
    case CauseKind::Unknown: break;
    }
    return "unknown";
}

std::string OutcomeWords(ActOutcome outcome, std::int64_t code, bool asked) {
    char hex[24];
    switch (outcome) {
    case ActOutcome::Open: return asked ? "asked, no answer yet" : "waiting";
    case ActOutcome::Accepted: return "accepted";
    case ActOutcome::Refused:
        std::snprintf(hex, sizeof hex, "0x%04X", static_cast<unsigned>(code) & 0xFFFFU);
        return "refused (" + std::string(hex) + ")";
    case ActOutcome::NotEnforced: return "not enforced";
    case ActOutcome::Dropped:
        switch (static_cast<DropReason>(code)) {
        case DropReason::NoRoom: return "dropped: the room wasn't open";
        case DropReason::Rated: return "dropped: the room was rate-limited";
        case DropReason::Cleared: return "dropped: the queue was emptied";
        case DropReason::Locked: return "dropped: a locked ban holds them";
        case DropReason::Lost: return "dropped: the room was lost";
        case DropReason::ByHand: return "dropped: taken out of the queue";
        }
        return "dropped";
    case ActOutcome::Lost: return "lost with its connection";
    case ActOutcome::Superseded: return "no answer came";
    case ActOutcome::Done: return "done";
    case ActOutcome::Failed: return "failed";
    }
    return "unknown";
}

std::string Quoted(const SearchWord& word, std::string_view before = {}) {
    return "\"" + std::string(before) + word.word + (word.begins ? "\"*" : "\"");
}

/// A question to the index, put together part by part; each has to hold.
class Question {
  public:
    Question(Connection& connection, const Search& search) : connection(connection) {
        for (const auto& word : search.words) And(Quoted(word));
        for (const auto& word : search.reason) And(Quoted(word, FieldWord(WordField::Reason, "")));
        if (search.kind) And(Field(WordField::Kind, static_cast<std::int64_t>(*search.kind)));
        if (!search.room.empty())
            AndAny(WordField::Room, "SELECT id FROM rooms WHERE key = ? LIMIT 200",
                   NormalizedUtf8(search.room));
        if (!search.op.empty())
            AndAny(WordField::Op, "SELECT id FROM persons WHERE key = ?", NormalizedUtf8(search.op));
        if (!search.person.empty())
            AndAny(WordField::Person, "SELECT id FROM persons WHERE key = ?", NormalizedUtf8(search.person));
        if (!search.rule.empty()) AndRules(Lower(FromUtf8(search.rule)));
        if (search.personRow != 0) And(Field(WordField::Person, search.personRow));
        if (search.opRow != 0) And(Field(WordField::Op, search.opRow));
        if (search.ruleRow != 0) And(Field(WordField::Rule, search.ruleRow));
    }

    bool AsksNothing() const { return text.empty(); }
    /// No act can be the answer: what a field names isn't in the ledger.
    bool IsVain() const { return vain; }
    const std::string& Text() const { return text; }

  private:
    static std::string NormalizedUtf8(const std::string& name) {
        return ToUtf8(NormalizeName(FromUtf8(name)));
    }
    static std::string Field(WordField field, std::int64_t number) {
        return "\"" + FieldWord(field, number) + "\"";
    }

    void And(const std::string& part) { text += (text.empty() ? "" : " AND ") + part; }

    void AndAny(const std::vector<std::string>& parts) {
        vain = vain || parts.empty();
        std::string any;
        for (const auto& part : parts) any += (any.empty() ? "" : " OR ") + part;
        And("(" + any + ")");
    }

    void AndAny(WordField field, std::string_view sql, const std::string& key) {
        std::vector<std::string> parts;
        auto& rows = connection.Prepare(sql).Bind(1, key);
        while (rows.Step()) parts.push_back(Field(field, rows.Integer(0)));
        AndAny(parts);
    }

    /// The newest rules, where the part of an entry stands in very many.
    void AndRules(const std::string& wanted) {
        std::vector<std::string> parts;
        if (const auto kind = RuleOfWord(wanted); kind != RuleKind::None)
            parts.push_back(Field(WordField::RuleKind, static_cast<std::int64_t>(kind)));
        auto& rows = connection.Prepare("SELECT id FROM rules WHERE instr(lower(entry), ?1) > 0"
                                        " ORDER BY id DESC LIMIT ?2");
        rows.Bind(1, ToUtf8(wanted)).Bind(2, MostRules);
        while (rows.Step()) parts.push_back(Field(WordField::Rule, rows.Integer(0)));
        AndAny(parts);
    }

    Connection& connection;
    std::string text;
    bool vain = false;
};

} // namespace

std::optional<ActRow> ReadAct(Connection& connection, std::int64_t number) {
    auto& row = connection.Prepare(RowText).Bind(1, number);
    if (!row.Step()) return std::nullopt;
    ActRow act;
    act.number = row.Integer(0);
    act.at = row.Integer(1);
    act.run = row.Integer(2);
    act.kind = static_cast<ActKind>(row.Integer(3));
    act.person = row.Integer(4);
    act.personKey = row.Text(5);
    act.personName = NameOf(row, act.person, 6);
    act.room = row.Integer(7);
    act.roomName = row.Text(8);
    act.exchange = static_cast<std::int16_t>(row.Integer(9));
    act.op = row.Integer(10);
    act.rule = row.Integer(11);
    act.ruleKind = static_cast<RuleKind>(row.Integer(12));
    act.ruleEntry = row.Text(13);
    act.causeKind = static_cast<CauseKind>(row.Integer(14));
    act.line = row.Text(17);
    act.reason = row.Text(18);
    act.cause = CauseWords(act, NameOf(row, row.Integer(15), 16), row.Text(19));
    act.list = static_cast<ListName>(row.Integer(20));
    act.entry = row.Text(21);
    act.outcome = static_cast<ActOutcome>(row.Integer(22));
    act.outcomeWords = OutcomeWords(act.outcome, row.Integer(23), !row.IsNull(24));
    act.undoes = row.Integer(25);
    act.undone = row.Integer(26);
    act.opName = NameOf(row, act.op, 27);
    row.Reset();
    return act;
}

std::int64_t FirstActSince(Connection& connection, std::int64_t moment) {
    auto& ends = connection.Prepare("SELECT (SELECT min(id) FROM acts), (SELECT max(id) FROM acts)");
    ends.Step();
    auto low = ends.Integer(0), high = ends.Integer(1) + 1;
    ends.Reset();
    // Numbers may be missing, so the next row from the middle on is looked at.
    auto& next = connection.Prepare("SELECT id, at FROM acts WHERE id >= ? ORDER BY id LIMIT 1");
    while (low < high) {
        const auto middle = low + (high - low) / 2;
        next.Reset();
        const bool later = !next.Bind(1, middle).Step() || next.Integer(1) >= moment;
        if (later)
            high = middle;
        else
            low = next.Integer(0) + 1;
    }
    next.Reset();
    return low;
}

std::vector<ActRow> FindActs(Connection& connection, const Search& search, std::int64_t before,
                             std::size_t limit) {
    const Question question(connection, search);
    if (question.IsVain()) return {};
    auto first = search.since ? FirstActSince(connection, *search.since) : 0;
    auto end = search.until ? FirstActSince(connection, *search.until) : NoEnd;
    if (before > 0) end = std::min(end, before);
    if (search.act) {
        first = std::max(first, *search.act);
        end = std::min(end, *search.act == NoEnd ? NoEnd : *search.act + 1);
    }
    auto& found =
        question.AsksNothing()
            ? connection.Prepare("SELECT id FROM acts WHERE id >= ?1 AND id < ?2 ORDER BY id DESC LIMIT ?3")
            : connection.Prepare("SELECT rowid FROM words WHERE words MATCH ?4 AND rowid >= ?1 AND"
                                 " rowid < ?2 ORDER BY rowid DESC LIMIT ?3");
    found.Bind(1, first).Bind(2, end).Bind(3, static_cast<std::int64_t>(std::min(limit, LongestPage)));
    if (!question.AsksNothing()) found.Bind(4, question.Text());
    std::vector<std::int64_t> numbers;
    while (found.Step()) numbers.push_back(found.Integer(0));
    found.Reset();
    std::vector<ActRow> acts;
    for (const auto number : numbers)
        if (auto act = ReadAct(connection, number)) acts.push_back(std::move(*act));
    return acts;
}

const char* RuleWord(RuleKind rule) {
    constexpr std::array<const char*, 8> words = {"",    "autoban",    "autoword", "ghost",
                                                  "icq", "characters", "lock",     "enforcement"};
    const auto number = static_cast<std::size_t>(rule);
    return number < words.size() ? words[number] : "";
}

RuleKind RuleOfWord(std::string_view word) {
    int number = 1;
    while (*RuleWord(static_cast<RuleKind>(number)) != 0 && word != RuleWord(static_cast<RuleKind>(number)))
        ++number;
    const auto rule = static_cast<RuleKind>(number);
    return *RuleWord(rule) != 0 ? rule : RuleKind::None;
}

const char* ListWord(ListName list) {
    switch (list) {
    case ListName::None: return "options";
    case ListName::Ops: return "ops";
    case ListName::Immunes: return "immunes";
    case ListName::Autobans: return "autobans";
    case ListName::Autowords: return "autowords";
    case ListName::LockOps: return "Lock Ops";
    case ListName::LockImms: return "Lock Imms";
    case ListName::LockBans: return "Lock Bans";
    case ListName::Ejects: return "eject list";
    }
    return "";
}

std::string EntryName(const std::string& entry) {
    constexpr std::string_view forgotten = "\xEE\x80\x80p";
    return entry.starts_with(forgotten) ? "stone " + entry.substr(forgotten.size()) : entry;
}

std::string RuleName(RuleKind rule, const std::string& entry) {
    return Joined(RuleWord(rule), EntryName(entry));
}

} // namespace halyard
