#pragma once

// The names of the departures, for whoever asks whether one is on; oscar/Departures.h says what they are.

#include <cstddef>

namespace halyard {

// The first twelve are ways that a network may need; the others are guards alone. By name in files.
enum class Departure {
    NavigationAnswers, ///< an answer of the navigation service is one to a creation that was sent there
    BareJoinRefusals,
    UnenforcedBans,
    MainSignOffs,
    WholeMessageBlocks,
    RoastedPasswordType,
    RateClassesAsTold,
    OneServiceRequest,
    RefusedSecondJoins,
    ReachableRedirects,
    NamesAreNoCommands,
    Tls,
    StopsAreStops,
    SilenceIsAskedAbout,
    RoomsAreAskedForAgain,
    TimeBansAreKept,
    ListsStayWithRooms,
    KicksEndAsKicks,
    BansOutliveRates,
    RequestIdsHaveOneOwner,
    NamesMeanPersons,
    OwnLinesAreNotHeard,
    DiceAreNotGhosts,
    RunawayFuse,
    NothingSaidIsLost,
    NothingTypedIsLost,
    ShownIsSo,
    Count
};

/// How many of them, from the first, are ways.
inline constexpr std::size_t WayCount = static_cast<std::size_t>(Departure::Tls) + 1;
inline constexpr std::size_t DepartureCount = static_cast<std::size_t>(Departure::Count);

} // namespace halyard
