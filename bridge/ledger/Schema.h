#pragma once

// What the ledger's file holds: its tables, as the one migration so far, and the numbers that stand in their
// columns. Every table and column is told in docs/ledger.md. A number that is in a file keeps its meaning for
// ever: new ones are added behind the last.

#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

enum class ActKind {
    Ban = 1,
    Unban,
    Kick,
    TimeBan,
    Readmit, ///< an unban of which nothing is said: the second half of a kick, the end of a time ban, an undo
    ListAdd,
    ListRemove,
    ListClear,
    Option, ///< options or permissions changed
    Load,   ///< a file was read into the lists
    Undo,   ///< acts were taken back; its steps are acts of their own
    Answer, ///< an instant message was answered
    Appeal,
    Note,
    Forget,
    Guard, ///< a guard had the desk go another way: its name is the entry
};
/// As it is searched and shown: "ban", "list-add". "" for a number that is none.
std::string_view ActWord(ActKind kind);
/// 0 for a word that is none; upper and lower case alike.
int ActOfWord(std::string_view word);

enum class ActOutcome {
    Open,
    Accepted,
    Refused,     ///< code: the refusal's word
    NotEnforced, ///< the service says yes and does nothing
    Dropped,     ///< code: the DropReason
    Lost,        ///< with its connection or room
    Superseded,  ///< its request id was given out again before an answer came
    Done,        ///< an act without a request
    Failed,
};

/// What a row of changes did. Of Option the entry is the key; a key that wasn't there has no "before".
enum class ChangeOp { Added = 1, Removed, Cleared, Option };

/// What a row of stages tells.
enum class StageKind {
    SignOn = 1, ///< a stage of signing on, in the window's words
    Refused,    ///< the sign-on
    SignedOn,
    SignedOff,
    Elsewhere, ///< the name signed on elsewhere
    SocketFailed,
    Ended, ///< a connection
    RoomEntered,
    RoomLeft,
    RoomRefused,
    Rate, ///< a rate notice: "code class"
};

enum class NoteKind { Note = 1, Appeal };

/// What the ledger opens. `path` is Windows-1252, empty for one in memory.
DatabaseSpec LedgerSpec(const std::string& path, std::int64_t calendarSeconds);

} // namespace halyard
