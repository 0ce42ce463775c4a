#pragma once

// The ledger looked at from one side: a person, an op, a rule. Runs in a job of Read; texts are UTF-8. The
// acts themselves come page by page from FindActs (Acts.h), by the fields "person", "op" and "rule" of a
// search.

#include "bridge/ledger/reading/Acts.h"
#include "bridge/ledger/reading/Standing.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// The row of persons of a name (case and blanks don't count), or of "stone 17". 0 when there is none.
std::int64_t FindPerson(Connection& connection, std::string_view name);

struct NoteLine {
    std::int64_t at = 0; ///< ms UTC
    NoteKind kind = NoteKind::Note;
    std::string author; ///< empty for the operator
    std::string text;
};

struct Lookalike {
    std::int64_t person = 0;
    std::string name;
    std::int64_t acts = 0;
    bool same = false; ///< the same skeleton; else one edit apart
};

struct PersonPage {
    std::int64_t person = 0;
    std::string key; ///< empty for a forgotten one
    std::string name;
    std::int64_t acts = 0;
    std::int64_t takenBack = 0;
    std::vector<Standing> standing;
    std::vector<NoteLine> notes;       ///< newest first, at most 200
    std::vector<Lookalike> lookalikes; ///< the same skeleton first, then by number of acts; at most 50
};
/// Nothing when there is no such row.
std::optional<PersonPage> ReadPerson(Connection& connection, std::int64_t person);

struct EvidenceLine {
    std::int64_t at = 0; ///< ms UTC
    std::string room;
    std::string line;
};
/// What the person of the act had said last, the oldest first.
std::vector<EvidenceLine> ReadEvidence(Connection& connection, std::int64_t act);

/// Counts of acts.
struct ActCounts {
    std::int64_t acts = 0;
    std::int64_t takenBack = 0;
    std::int64_t noReason = 0;
};
struct DayCounts : ActCounts {
    std::string day; ///< in the machine's zone
};

struct OpPage {
    std::int64_t person = 0;
    std::string name;
    ActCounts all;
    std::vector<DayCounts> days; ///< newest first, only those with acts
};
/// What was done on the word of that person since that moment (ms UTC). Nothing when there is no such row.
std::optional<OpPage> ReadOp(Connection& connection, std::int64_t person, std::int64_t since);

/// Somebody, or some rule, of whom there are acts.
struct ActsOf {
    std::int64_t row = 0; ///< of persons or rules
    std::string name;
    std::int64_t acts = 0;
    std::int64_t lastAct = 0;
};
/// All ops that did something, the most active first.
std::vector<ActsOf> ReadOps(Connection& connection);
/// All rules that hit somebody, the most active first. With a text only those that a search's "rule:" would
/// take.
std::vector<ActsOf> ReadRules(Connection& connection, std::string_view text);

struct RulePage {
    std::int64_t rule = 0;
    RuleKind kind = RuleKind::None;
    std::string entry;
    std::int64_t acts = 0;
    std::int64_t takenBack = 0;
    std::int64_t lastHit = 0;    ///< ms UTC
    std::vector<ActsOf> persons; ///< whom it hit, the last one first, at most 1000
    bool stands = false;         ///< its entry is on its list
};
/// Nothing when there is no such row.
std::optional<RulePage> ReadRule(Connection& connection, std::int64_t rule);

/// Entries of autobans and autowords that never hit anybody.
struct NeverHit {
    RuleKind kind = RuleKind::None;
    std::string entry;
};
std::vector<NeverHit> ReadNeverHit(Connection& connection);

/// The list on which entries of the rule stand; None for a rule without entries of the operator's.
ListName ListOf(RuleKind rule);

} // namespace halyard
