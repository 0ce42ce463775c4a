#pragma once

// What the operator has decided on the departures: a guard that isn't named is as the network has it.

#include "oscar/Departures.h"

#include <array>

namespace halyard {

struct GuardTerms {
    std::array<Departures::Guard, DepartureCount> decided{};

    Departures::Guard Of(Departure departure) const { return decided[static_cast<std::size_t>(departure)]; }
    void Decide(Departure departure, Departures::Guard guard) {
        decided[static_cast<std::size_t>(departure)] = guard;
    }
    bool operator==(const GuardTerms&) const = default;
};

} // namespace halyard
