#include "soak/watch/ActWatch.h"

#include "base/Cause.h"
#include "base/Text.h"
#include "bridge/ledger/Schema.h"
#include "bridge/ledger/Texts.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

/// Facts wait no longer than a fault of the disk; what is older is needed no more, ms.
constexpr std::int64_t LongestHeard = std::int64_t{10} * 60 * 1000;

struct Meaning {
    ActKind act;
    RuleKind rule;
};

Meaning MeaningOf(BanKind kind) {
    switch (kind) {
    case BanKind::Unban: return {ActKind::Unban, RuleKind::None};
    case BanKind::UnbanKick: return {ActKind::Readmit, RuleKind::None};
    case BanKind::Kick: return {ActKind::Kick, RuleKind::None};
    case BanKind::TimeBan: return {ActKind::TimeBan, RuleKind::None};
    case BanKind::Autoban: return {ActKind::Ban, RuleKind::Autoban};
    case BanKind::Autoword: return {ActKind::Ban, RuleKind::Autoword};
    case BanKind::AutoGhost: return {ActKind::Ban, RuleKind::Ghost};
    case BanKind::Char: return {ActKind::Ban, RuleKind::Chars};
    case BanKind::ICQ: return {ActKind::Ban, RuleKind::ICQ};
    case BanKind::Ban:
    case BanKind::Ghost: break;
    }
    return {ActKind::Ban, RuleKind::None};
}

bool IsSaid(CauseKind kind) { return kind == CauseKind::OpLine || kind == CauseKind::OpIM; }

std::int64_t Newest(Connection& file, const char* sql) {
    auto& row = file.Prepare(sql);
    const auto newest = row.Step() ? row.Integer(0) : 0;
    row.Reset();
    return newest;
}

} // namespace

void ActWatch::Heard(std::int64_t at, std::string_view frame) {
    while (!heard.empty() && heard.front().at < at - LongestHeard) heard.pop_front();
    heard.push_back({at, std::string(frame)});
}

void ActWatch::Look(Connection& file, std::int64_t lost) {
    if (lost > 0) {
        doubtfulAct = Newest(file, "SELECT max(id) FROM acts") + lost;
        doubtfulCause = Newest(file, "SELECT max(id) FROM causes") + lost;
    }
    LookAtActs(file);
    LookAtRequests(file, lost > 0);
    LookAtAnswers(file);
}

/// Each has a cause that somebody opened a scope for.
void ActWatch::LookAtActs(Connection& file) {
    auto& rows = file.Prepare("SELECT a.id, a.at, a.cause, c.kind, c.line, p.key, c.rule, a.person, c.who "
                              "FROM acts a LEFT JOIN causes c ON c.id = a.cause "
                              "LEFT JOIN persons p ON p.id = c.who WHERE a.id > ? ORDER BY a.id");
    rows.Bind(1, act);
    while (rows.Step()) {
        act = rows.Integer(0);
        const auto number = rows.Integer(2);
        const bool fresh = number > cause; // else it follows from a cause of earlier
        cause = std::max(cause, number);
        const auto kind = static_cast<CauseKind>(rows.Integer(3));
        if (number <= doubtfulCause && kind == CauseKind::Unknown) continue;
        if (kind == CauseKind::Unknown) Find("nobody knows the cause of act #", act);
        if (kind == CauseKind::Rule && !rows.IsNull(6) && !rows.IsNull(7) &&
            rows.Integer(7) != rows.Integer(8))
            Find("its rule met another person than that of act #", act);
        const auto line = rows.Text(4);
        const bool said = IsSaid(kind) || (kind == CauseKind::Rule && !line.empty());
        if (fresh && said && !WasHeard(rows.Integer(1), rows.Text(5), line))
            Find("nobody had said what caused act #", act);
    }
    rows.Reset();
}

bool ActWatch::WasHeard(std::int64_t at, const std::string& who, const std::string& line) const {
    if (heard.empty() || at < heard.front().at) return true; // so long ago that it isn't known
    return std::any_of(heard.rbegin(), heard.rend(), [&](const Text& each) {
        return each.at == at && KeptText(each.text).find(line) != std::string::npos &&
               KeptText(NormalizeName(each.text)).find(who) != std::string::npos;
    });
}

/// What came back without having been asked stands among them, with a verdict and no act.
void ActWatch::LookAtRequests(Connection& file, bool lost) {
    auto& rows = file.Prepare("SELECT r.id, r.act, r.wire, o.key, p.key, a.kind, u.kind, c.kind "
                              "FROM requests r LEFT JOIN rooms o ON o.id = r.room "
                              "LEFT JOIN acts a ON a.id = r.act LEFT JOIN persons p ON p.id = a.person "
                              "LEFT JOIN rules u ON u.id = a.rule LEFT JOIN causes c ON c.id = a.cause "
                              "WHERE r.id > ? AND NOT (r.act IS NULL AND r.verdict IS NOT NULL) "
                              "ORDER BY r.id");
    rows.Bind(1, request);
    while (rows.Step()) {
        request = rows.Integer(0);
        if (!rows.IsNull(1) && !asked.insert(rows.Integer(1)).second)
            Find("its act had been asked for already, request ", request);
        const auto found = std::find_if(sent.begin(), sent.end(), [&](const Request& each) {
            return each.wire == rows.Integer(2) && KeptText(each.room) == rows.Text(3);
        });
        // A socket that fails takes what was told as sent.
        if (found == sent.end() && faultless) Find("it never went out, request ", request);
        if (found == sent.end()) continue;
        if (found != sent.begin() && !lost) Find("another one went out before it, request ", request);
        const auto seen = std::move(*found);
        sent.erase(sent.begin(), found + 1);
        if (rows.Integer(1) > doubtfulAct) LookAtRequest(rows, seen);
        if (rows.IsNull(1) && doubtfulAct == 0) Find("no act wanted request ", request);
    }
    rows.Reset();
    if (!sent.empty() && !lost) Find("a request went out that isn't told; the last that is, is ", request);
    sent.clear();
}

void ActWatch::LookAtRequest(const Statement& row, const Request& seen) {
    if (row.Text(4) != KeptText(seen.user)) Find("it is about another person, request ", request);
    const auto act = static_cast<ActKind>(row.Integer(5));
    if (seen.ban == (act == ActKind::Unban || act == ActKind::Readmit))
        Find("it asked the contrary of its act, request ", request);
    if (!seen.kind) return;
    const auto meant = MeaningOf(*seen.kind);
    if (act != meant.act) Find("its act is of another kind, request ", request);
    if (static_cast<RuleKind>(row.Integer(6)) != meant.rule) Find("another rule wanted request ", request);
    if (meant.rule != RuleKind::None && static_cast<CauseKind>(row.Integer(7)) != CauseKind::Rule)
        Find("no rule wanted request ", request);
}

/// What became another by a reply did so for the act that was asked for, and for its cause.
void ActWatch::LookAtAnswers(Connection& file) {
    auto& rows = file.Prepare("SELECT c.id, c.act, a.id, c.cause = a.cause, a.kind, a.outcome "
                              "FROM changes c LEFT JOIN acts a ON a.id = c.act WHERE c.id > ? ORDER BY c.id");
    rows.Bind(1, change);
    while (rows.Step()) {
        change = rows.Integer(0);
        if (rows.Integer(1) <= doubtfulAct && doubtfulAct != 0) continue;
        const bool asked = rows.Integer(4) <= static_cast<int>(ActKind::Readmit);
        const bool accepted = static_cast<ActOutcome>(rows.Integer(5)) == ActOutcome::Accepted;
        if (rows.IsNull(2)) Find("no act stands behind change ", change);
        if (rows.Integer(3) == 0) Find("it has another cause than its act, change ", change);
        if (asked && !accepted) Find("it came without a yes, change ", change);
    }
    rows.Reset();
}

void ActWatch::Find(const char* words, std::int64_t row) {
    onFinding("the ledger is wrong: " + std::string(words) + std::to_string(row));
}

} // namespace halyard
