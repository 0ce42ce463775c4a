#pragma once

// Whether an alarm is to ring, from nothing but what was told of it and what is.

#include <cstdint>

namespace halyard {

// The numbers stand in files: new ones come behind the last.
/// Why one rings.
enum class RingReason {
    Nothing, ///< it doesn't
    First,   ///< it began
    More,    ///< it began while others of its kind stand
    Ended,   ///< what was told is over
    RestOver ///< it began while it rested from its last ring, and lasts
};
/// "first", "more", "ended", "rest-over"; "nothing" for the other.
const char* WordOf(RingReason reason);

/// What was told of an alarm last. Moments are Platform::Milliseconds.
struct AlarmTold {
    std::int64_t rangAt = -1; ///< its beginning; -1: never
    bool standing = false;    ///< and its end wasn't told yet
    bool operator==(const AlarmTold&) const = default;
};

/// What is.
struct AlarmNow {
    bool fires = false;
    std::int64_t since = 0; ///< since when it does
    bool ended = false;     ///< what was told is over, though it may fire anew
    bool others = false;    ///< another of its kind was told and stands
};

/// `rest` in ms. What came and went untold rings neither way.
RingReason ToRing(const AlarmTold& told, const AlarmNow& is, std::int64_t rest, std::int64_t now);

} // namespace halyard
