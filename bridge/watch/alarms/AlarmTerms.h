#pragma once

// What the operator wants of the alarms: which ring, from what on, how long they rest, and where they ring.

#include "bridge/watch/alarms/AlarmKinds.h"

#include <array>
#include <string>
#include <vector>

namespace halyard {

/// Of one kind. `limit` and `minutes` mean nothing to a kind that doesn't use them (AlarmBounds).
struct AlarmTerm {
    bool on = true;
    int limit = 0;   ///< rings when there were more than so many
    int minutes = 0; ///< in so many; or lasting so many
    int rest = 60;   ///< minutes from one ring of an alarm to its next
    bool operator==(const AlarmTerm&) const = default;
};

/// Which numbers a kind uses.
struct AlarmBounds {
    bool limit = false;
    bool minutes = false;
};
AlarmBounds BoundsOf(AlarmKind kind);
AlarmTerm DefaultTerm(AlarmKind kind);

struct AlarmTerms {
    static constexpr int LargestLimit = 10'000;
    static constexpr int LongestMinutes = 10'080; ///< a week
    static constexpr std::size_t MostArguments = 50;
    static constexpr std::size_t MostNames = 10;

    AlarmTerms();

    bool tray = true;
    bool list = true;                  ///< told as what else the bridge has to tell
    std::vector<std::string> command;  ///< program and arguments; empty for none
    std::vector<std::string> messages; ///< normalised names that are told by instant message
    bool daily = false;                ///< and once a day that all is well, or what isn't

    const AlarmTerm& Of(AlarmKind kind) const { return kinds[static_cast<std::size_t>(kind)]; }
    AlarmTerm& Of(AlarmKind kind) { return kinds[static_cast<std::size_t>(kind)]; }
    bool operator==(const AlarmTerms&) const = default;

  private:
    std::array<AlarmTerm, AlarmKindCount> kinds;
};

} // namespace halyard
