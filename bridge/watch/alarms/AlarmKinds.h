#pragma once

// What an alarm can be about.

#include "base/Departure.h"

#include <cstddef>
#include <string_view>

namespace halyard {

// The numbers stand in files: new ones come behind the last.
enum class AlarmKind {
    OffLine = 1,  ///< the account isn't on line
    GivenUp,      ///< a sign-on or a re-connection came to an end without success
    NeedsYou,     ///< the password is refused or the name suspended: nothing tries again by itself
    RoomLost,     ///< lost, refused or closed
    Silent,       ///< nobody's line is heard in a room with people
    Rated,        ///< a room's rate is limited again and again
    LinesDropped, ///< lines were never said
    BansRefused,  ///< for want of ownership, or by the network
    NotWritten,   ///< a file or the ledger
    Raid,         ///< many newcomers were acted on
    Fuse,         ///< an entry paused because it acted on many who aren't new
    HopelessRoom, ///< a room is asked for no more
    TimeBans,     ///< can't be kept
    Count
};

inline constexpr std::size_t AlarmKindCount = static_cast<std::size_t>(AlarmKind::Count);

/// What a kind is called: in files by `name`, to people by `words`, with `says` under it.
struct AlarmText {
    std::string_view name;
    std::string_view words;
    std::string_view says;
};
/// Empty texts for what is no kind.
AlarmText TextOf(AlarmKind kind);

/// What a guard's alarm is about.
AlarmKind AlarmOfGuard(Departure guard);

} // namespace halyard
