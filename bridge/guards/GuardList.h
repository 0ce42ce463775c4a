#pragma once

// The departures as the operator is shown them: in groups by what one fears, and the ways that only a network
// needs behind them. Any of them can be switched by hand.

#include "base/Departure.h"

#include <array>
#include <string>

namespace halyard {

enum class GuardGroup { Back, Bans, Names, Speech, Truth, Ways };
inline constexpr std::size_t GuardGroupCount = 6;

struct GuardRow {
    Departure departure;
    GuardGroup group;
    const char* title;
    /// Whether its question is answered while it is off too, so that it can be said how often it would have
    /// acted.
    bool counted;
};

/// In the order in which they are shown, each departure once, group by group.
const std::array<GuardRow, DepartureCount>& GuardList();
/// Where it stands in the list.
const GuardRow& RowOf(Departure departure);
/// What one fears, as the group's heading.
const char* TitleOf(GuardGroup group);
/// One that is recommended for a bot that nobody looks after: all that aren't ways alone.
constexpr bool IsRecommended(GuardGroup group) { return group != GuardGroup::Ways; }

} // namespace halyard
