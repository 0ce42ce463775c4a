#pragma once

// When what waits in a room will go, by the pauses that run: the room's own rules, played through on a copy.

#include "bridge/watch/Truth.h"

#include <cstdint>
#include <vector>

namespace halyard {

/// What holds a waiting thing up longest.
enum class Holdup { Pause, Ahead, Rated };

struct Departing {
    std::int64_t number = 0; ///< of the line, or the id of the ban
    std::int64_t at = -1;    ///< ms as Truth has them; -1: not until somebody frees the room
    Holdup why = Holdup::Pause;
    bool overtaken = false; ///< it will never be said: it goes when a line behind it does
};

inline constexpr std::size_t ForecastDepth = 500;

/// In the order of the queue, as it stands and with nothing said or banned meanwhile. At most the first
/// ForecastDepth are played through; what is behind them has the moment of the last.
std::vector<Departing> ForecastLines(const RoomTruth& room, std::int64_t now);
/// `banPause` in seconds, as Chats::BanPause has it.
std::vector<Departing> ForecastBans(const RoomTruth& room, std::int64_t now, float banPause);

} // namespace halyard
