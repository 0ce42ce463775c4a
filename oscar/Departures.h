#pragma once

// The departures: behaviour that is laid down and fails on some networks, each with its cure. A departure is
// off unless a network's ways or the operator's guards switch it on, and where it is off the desk does what
// is laid down. The one set of switches belongs to the protocol control, which asks it at as few places as
// the behaviour has.

#include "base/Departure.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <optional>
#include <string_view>

namespace halyard {

/// How a departure is told of: `name` is its key in files and on command lines.
struct DepartureText {
    const char* name;
    const char* laidDown;
    const char* instead;
};
const DepartureText& TextOf(Departure departure);
/// One that a network may need; nothing for another name. Case counts.
std::optional<Departure> WayNamed(std::string_view name);

/// The departures that a network needs.
using Ways = std::bitset<DepartureCount>;

/// All of `departures`, set.
template <typename... Each>
Ways WaysOf(Each... departures) {
    Ways ways;
    (ways.set(static_cast<std::size_t>(departures)), ...);
    return ways;
}

class Departures {
  public:
    enum class Guard { Unset, On, Off };

    /// True when the network's ways or the operator say so; the operator's Off wins.
    bool On(Departure departure) const { return on[static_cast<std::size_t>(departure)]; }
    void SetWays(const Ways& ofNetwork) { ways = ofNetwork, Settle(); }
    const Ways& OfNetwork() const { return ways; }
    Guard GuardOf(Departure departure) const { return guards[static_cast<std::size_t>(departure)]; }
    void SetGuard(Departure departure, Guard guard) {
        guards[static_cast<std::size_t>(departure)] = guard;
        Settle();
    }

  private:
    /// Asked with every frame, so the answers are kept ready.
    void Settle() {
        for (std::size_t index = 0; index < DepartureCount; ++index)
            on[index] = guards[index] == Guard::On || (guards[index] == Guard::Unset && ways[index]);
        // To ask for rooms one by one is part of asking again.
        const auto byOne = static_cast<std::size_t>(Departure::OneServiceRequest);
        if (On(Departure::RoomsAreAskedForAgain) && guards[byOne] != Guard::Off) on[byOne] = true;
    }

    Ways ways;
    Ways on;
    std::array<Guard, DepartureCount> guards{};
};

} // namespace halyard
