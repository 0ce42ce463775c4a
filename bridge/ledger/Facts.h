#pragma once

// What the ledger keeps, between the loop that hears it and the writer that turns it into rows. Facts own
// their texts (Windows-1252). Numbers of acts and causes count from 1 in each run; the writer adds what the
// file holds already. A moment is UTC milliseconds.

#include "base/Cause.h"
#include "base/News.h"
#include "bridge/ledger/Schema.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace halyard {

struct RoomName {
    std::string name;
    std::int16_t exchange = 0;
};
using NamedRoom = std::shared_ptr<const RoomName>; ///< null for none

/// A text, or that there is none.
using MaybeText = std::optional<std::string>;

struct CauseFact {
    std::int64_t number = 0;
    std::int64_t around = 0;
    CauseKind kind = CauseKind::Unknown;
    RuleKind rule = RuleKind::None;
    NamedRoom room;
    std::string who, line, reason, entry;
};

struct ActFact {
    std::int64_t number = 0;
    std::int64_t at = 0;
    std::int64_t cause = 0;
    ActKind kind{};
    ActOutcome outcome = ActOutcome::Open;
    NamedRoom room;
    std::string person; ///< empty for none, as the next
    std::string entry;
    ListName list = ListName::None;
    int code = 0;
    std::int64_t undoes = 0; ///< of the file, not of the run
};

/// A request waits, goes out or is answered, or comes to nothing.
struct StepFact {
    enum class Step { Queued, Asked, Answered, Ended } step{};
    std::int64_t act = 0; ///< 0 for a reply without a request
    std::int64_t at = 0;
    std::int64_t after = 0; ///< ms since the act's beginning
    NamedRoom room;
    std::int32_t wire = 0;
    ActOutcome outcome = ActOutcome::Open;
    int code = 0;
};

/// An act took back another; both of the file.
struct UndoneFact {
    std::int64_t act = 0;
    std::int64_t by = 0;
};

struct ChangeFact {
    std::int64_t at = 0;
    std::int64_t act = 0; ///< 0 for none
    std::int64_t cause = 0;
    ListName list = ListName::None;
    ChangeOp op{};
    NamedRoom room;
    std::string entry;
    MaybeText before, after;
};

/// Texts one behind the other, kept as one so that a long list is copied fast.
struct Entries {
    std::string text;
    std::vector<std::uint32_t> lengths;
    void Add(std::string_view entry) {
        text.append(entry);
        lengths.push_back(static_cast<std::uint32_t>(entry.size()));
    }
};

/// The whole content of a list; of the options with ListName::None.
struct WholeFact {
    std::int64_t at = 0;
    ListName list = ListName::None;
    NamedRoom room;
    Entries entries;
    bool begins = true;
};

struct ConnectionFact {
    std::int64_t at = 0;
    int socket = 0;
    StageKind stage{};
    std::string text;
    std::string network, account; ///< empty for none
};

struct EvidenceFact {
    std::int64_t act = 0;
    std::int64_t at = 0;
    NamedRoom room;
    std::string line;
};

struct NoteFact {
    std::int64_t at = 0;
    NoteKind kind{};
    std::string person, author, text;
};

struct GapFact {
    std::int64_t at = 0;
    std::int64_t until = 0;
    std::int64_t facts = 0;
};

/// A minute of the bot, as a whole. Seconds and counts within the minute, unless said otherwise.
struct SampleFact {
    std::int64_t minute = 0;           ///< since 1970
    int online = 0;                    ///< seconds
    int rooms = 0, people = 0;         ///< at its end
    int ratedBans = 0, ratedLines = 0; ///< seconds in which a room was
    int heard = 0, said = 0, dropped = 0;
    int linesWaiting = 0, bansWaiting = 0; ///< the most at one time
    int byAutoban = 0, byAutoword = 0, byGhost = 0, byICQ = 0, byChars = 0, byOps = 0, byOthers = 0; ///< bans
    bool operator==(const SampleFact&) const = default;
};

/// An alarm rang, rang again, ended, or was held back.
struct AlarmFact {
    std::int64_t at = 0;
    int kind = 0;
    std::string subject;
    int reason = 0;
    std::string words;
};

/// Comes on top of what the day has already.
struct GuardFact {
    std::int64_t day = 0; ///< since 1970
    std::string guard;
    bool acted = false;
    std::int64_t count = 0;
};

struct RunEndFact {
    std::int64_t at = 0;
};

using Fact = std::variant<CauseFact, ActFact, StepFact, UndoneFact, ChangeFact, WholeFact, ConnectionFact,
                          EvidenceFact, NoteFact, GapFact, RunEndFact, SampleFact, AlarmFact, GuardFact>;

} // namespace halyard
