#pragma once

// Finding out what taking acts back means. The plan is a value: it is shown, ticked, and carried out
// elsewhere as it was shown. It keeps the numbers of the last facts it saw; when the world has moved on by
// the time somebody confirms it, a new plan is made and Difference says what is other.

#include "bridge/ledger/reading/Acts.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

struct UndoAsk {
    enum class What {
        Acts, ///< those of `acts`
        Op,   ///< everything of the person `row` since `since`
        Rule, ///< everything of the rule `row` since `since`
        Run,  ///< everything of the run `row` since `since`
    };
    What what = What::Acts;
    std::vector<std::int64_t> acts;
    std::int64_t row = 0;
    std::int64_t since = 0; ///< ms UTC
};

enum class UndoStep {
    Nothing, ///< there is nothing to do, or it can't be done
    Unban,   ///< the person is let in again
    TakeOff, ///< the entries go from their list
    PutBack, ///< the entries come back to their list
    SetBack, ///< the option gets its value from before
};

/// An entry on one of the seven lists. Texts are the desk's, Windows-1252.
struct ListEntry {
    ListName list = ListName::None;
    std::string entry;
    bool operator==(const ListEntry&) const = default;
};

/// The desk as it is. A plan is made in a job of Read, so what is asked here are copies. Texts are the
/// desk's, Windows-1252; a name is in the form in which names compare.
struct DeskNow {
    std::function<bool(const ListEntry&)> holds;
    /// Whether the eject list of the room (by its name, in any spelling, and exchange) holds the name.
    std::function<bool(const std::string& room, std::int16_t exchange, const std::string& name)> isOut;
    /// Whether Lock Bans holds the name.
    std::function<bool(const std::string& name)> isLocked;
    /// What would ban the name again, in words ("autoban b*"), once the entries of `without` are gone; empty
    /// for nothing.
    std::function<std::string(const std::string& name, const std::vector<ListEntry>& without)> hits;
    /// An option's value; nothing when there is no such key.
    std::function<std::optional<std::string>(const std::string& key)> option;
};

struct UndoItem {
    std::int64_t act = 0; ///< 0 for an entry of which no act is known
    UndoStep step = UndoStep::Nothing;
    std::int64_t person = 0;
    std::string name; ///< of Unban: the form in which names compare, Windows-1252
    std::string room; ///< of Unban, Windows-1252
    std::int16_t exchange = 0;
    ListName list = ListName::None;
    std::vector<std::string> entries;  ///< of TakeOff and PutBack; the one key of SetBack; Windows-1252
    std::optional<std::string> before; ///< of SetBack; nothing: the key goes
    bool ticked = false;
    bool mayTick = false;
    bool waits = false; ///< the ban wasn't answered yet: that is waited for
    std::string words;  ///< what taking it back means, or why it can't be; UTF-8
    std::string marks;  ///< what speaks against it, or comes after it; UTF-8, may be empty
};

struct UndoPlan {
    std::int64_t lastAct = 0;    ///< the last of all acts when the plan was made
    std::int64_t lastChange = 0; ///< the last change
    std::vector<UndoItem> first; ///< entries that still stand and would go on hitting; to be done first
    std::vector<UndoItem> items; ///< the acts, newest first
    bool more = false;           ///< there are older acts than the 10,000 of the plan
};

UndoPlan PlanUndo(Connection& connection, const UndoAsk& ask, const DeskNow& now);

/// What is other in `now` than in the plan that was shown, a line each, UTF-8; empty when nothing is. What
/// the person ticked doesn't count.
std::vector<std::string> Difference(const UndoPlan& shown, const UndoPlan& now);

} // namespace halyard
