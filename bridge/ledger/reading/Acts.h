#pragma once

// The ledger's acts as people read them, found by a search or by their number. All of it runs in a job of
// Read, or on a connection of one's own; texts are UTF-8, as they were said (Visible.h has what may be
// shown).

#include "base/Cause.h"
#include "base/News.h"
#include "bridge/ledger/reading/SearchText.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

struct ActRow {
    std::int64_t number = 0;
    std::int64_t at = 0; ///< ms UTC
    std::int64_t run = 0;
    ActKind kind = ActKind::Ban;
    std::int64_t person = 0;   ///< row of persons, 0 for none
    std::string personKey;     ///< the form in which names compare; empty for none and for a forgotten one
    std::string personName;    ///< as spelled last, "stone 17" for a forgotten one
    std::int64_t room = 0;     ///< row of rooms, 0 for none
    std::string roomName;      ///< as spelled
    std::int16_t exchange = 0; ///< of the room
    std::int64_t op = 0;       ///< row of persons: on whose word it was done, 0 for nobody's
    std::string opName;        ///< as spelled last
    std::int64_t rule = 0;     ///< row of rules, 0 for none
    RuleKind ruleKind = RuleKind::None;
    std::string ruleEntry;
    CauseKind causeKind = CauseKind::Unknown;
    std::string cause; ///< in words: "roomboss: ban bob/was rude", "autoword *sp4m*"
    std::string line;  ///< what was said before it; empty when nothing was, or the text has gone
    std::string reason;
    ListName list = ListName::None;
    std::string entry; ///< of a list act, the option's key, or the file of a load
    ActOutcome outcome = ActOutcome::Open;
    std::string outcomeWords; ///< "accepted", "refused (0x0005)", "waiting"
    std::int64_t undoes = 0;  ///< the act that it takes back, 0 for none
    std::int64_t undone = 0;  ///< the act by which it was taken back, 0 for not
    bool HasReason() const { return !reason.empty(); }
};

/// The acts that `search` asks for, newest first, at most `limit` (at most 1000). `before` is the number of
/// the last act of the page before, 0 for the first page. One page is one read: ask for no more than is
/// shown.
std::vector<ActRow> FindActs(Connection& connection, const Search& search, std::int64_t before,
                             std::size_t limit);

/// Nothing when there is no such act.
std::optional<ActRow> ReadAct(Connection& connection, std::int64_t number);

/// The smallest number of an act that was done at `moment` or later; one more than the last when there is
/// none. Of a clock that was set back it knows nothing: the act it gives is the first of some stretch.
std::int64_t FirstActSince(Connection& connection, std::int64_t moment);

/// "autoword", "characters"; empty for None.
const char* RuleWord(RuleKind rule);
/// None for a word that is none; lower case.
RuleKind RuleOfWord(std::string_view word);
/// "autobans", "eject list"; "options" for None.
const char* ListWord(ListName list);
/// An entry of the file as people know it: that which held a forgotten name is "stone 17".
std::string EntryName(const std::string& entry);
/// "autoword *sp4m*"; the kind alone for a rule without entries.
std::string RuleName(RuleKind rule, const std::string& entry);

} // namespace halyard
