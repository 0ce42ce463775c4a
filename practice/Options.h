#pragma once

#include "oscar/Departures.h"
#include "oscar/NetworkSecrets.h"
#include "practice/service/RateClasses.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

/// How the management answers: as it should, with status 500, not at all, with what is no HTTP.
enum class ManagementMood { Works, Failing, Silent, Garbage };

/// What a practice network can be told at its start.
struct PracticeOptions {
    std::string address = "127.0.0.1"; ///< where it listens, and where redirects send clients
    std::int32_t port = 5190;          ///< 0 takes any free one
    /// The salts that the hashed sign-on may be made with: the bot's own network and the public clients.
    std::vector<std::string> salts = {DefaultSecrets().salt, "AOL Instant Messenger (SM)"};
    RateClasses rateClasses = DefaultRateClasses();
    int maxPeople = 50;          ///< of a new room
    int maxMessageLength = 2000; ///< of a room line with its tags, in bytes; longer ones are dropped
    int maxVisibleLength = 232;  ///< told to clients, not enforced
    std::int64_t startedAt = 0;  ///< seconds since 1970 at the platform's millisecond 0, for sign-on times
    int signOnSeconds = 60;      ///< a connection that has not said who it is by then is closed
    std::size_t maxConnections = 1000;
    std::size_t maxRooms = 500;
    std::int32_t management = -1; ///< the port of the management on 127.0.0.1; 0 any free one, -1 none
    std::string password;         ///< the one that everybody's sign-on needs; empty: any will do
    Ways ways; ///< the habits of other services: for each departure, the one that it is there for

    bool Has(Departure habit) const { return ways.test(static_cast<std::size_t>(habit)); }
};

} // namespace halyard
