#pragma once

// The words of what is true: stages, who was behind something, why something was dropped; and moments by the
// machine's clock. Texts are Windows-1252.

#include "bridge/watch/Forecast.h"
#include "bridge/watch/Truth.h"

#include <cstdint>
#include <string>

namespace halyard {

class Platform;

/// Tells the moments of the watch (Platform::Milliseconds) by the calendar clock.
class WatchClock {
  public:
    /// `platform` outlives it.
    explicit WatchClock(Platform& platform) : platform(platform) {}
    std::int64_t Now() const;
    /// ms UTC.
    std::int64_t Calendar(std::int64_t moment);
    /// "15:05:09"; with the day, too, when it isn't today's. Empty for a moment below 0.
    std::string Shown(std::int64_t moment);

  private:
    Platform& platform;
    std::int64_t apart = 0; ///< of the two clocks, kept so that no shown second flickers
};

/// "Online", "under way (Opening)", "stuck: refused (The password is not this name's.)".
std::string StageWords(const StageTruth& standing, std::int64_t now);
/// "op roomboss", "autoban sp4m", "the operator (cmdSend)".
std::string OriginWords(const Origin& origin);
std::string DropWords(const DroppedThing& dropped);
std::string HoldupWords(const Departing& departing);
/// "ban", "kick", "time ban".
std::string BanWords(BanKind kind);
/// "talking limited until 15:05:09", "free".
std::string RateWords(const RoomTruth& room, WatchClock& clock);

} // namespace halyard
