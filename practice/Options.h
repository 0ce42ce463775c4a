#pragma once

#include "oscar/Departures.h"
#include "oscar/NetworkSecrets.h"
#include "practice/service/RateClasses.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// How the management answers: as it should, with status 500, not at all, with what is no HTTP.
enum class ManagementMood { Works, Failing, Silent, Garbage };

/// What a practice network can be told at its start.
struct PracticeOptions {
    std::string address = "127.0.0.1"; ///< where it listens, and where redirects send clients
    std::int32_t port = 5190;          ///< 0 takes any free one
    /// The salts that the hashed sign-on may be made with: the bot's own network and the public clients.
    /// Without a password a hash that another salt made looks like one of another password, and is welcome.
    std::vector<std::string> salts = {DefaultSecrets().salt, "AOL Instant Messenger (SM)"};
    std::string password = {}; ///< of everybody; empty: any but an empty one
    /// Bytes of the cookies by which a connection vouches for the next; rounded up to a multiple of 4. Some
    /// clients take no other number than the classic network's.
    std::size_t cookieLength = 256;
    RateClasses rateClasses = DefaultRateClasses();
    int maxPeople = 50;          ///< of a new room
    int maxMessageLength = 2000; ///< of a room line with its tags, in bytes; longer ones are dropped
    int maxVisibleLength = 232;  ///< told to clients, not enforced
    std::int64_t startedAt = 0;  ///< seconds since 1970 at the platform's millisecond 0, for sign-on times
    int signOnSeconds = 60;      ///< a connection that has not said who it is by then is closed
    std::size_t maxConnections = 1000;
    std::size_t maxRooms = 500;
    std::int32_t management = -1; ///< the port of the management on 127.0.0.1; 0 any free one, -1 none
    Ways ways = {}; ///< the habits of other services: for each departure, the one that it is there for

    bool Has(Departure habit) const { return ways.test(static_cast<std::size_t>(habit)); }
};

/// The ways of `names`, which are separated by commas: names of departures, and "open-server" for all that
/// the network "Open server" has. Nothing for an unknown name; `problem` then tells it and those that there
/// are.
std::optional<Ways> WaysNamed(std::string_view names, std::string& problem);
/// The salt of "laid-down" or "classic", those of the networks of these names; empty for any other name.
std::string SaltNamed(std::string_view name);

} // namespace halyard
