#pragma once

// Times of the ledger, which are UTC milliseconds since 1970, as people write and read them: in the zone that
// the machine is set to (TZ), with its name.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

/// "2026-11-23 15:05:09 CET". A time that the calendar has no date for is shown as its number.
std::string ShownMoment(std::int64_t utcMilliseconds);
/// "2026-11-23", the day there.
std::string ShownDay(std::int64_t utcMilliseconds);

/// "15:05:09", without day and zone.
std::string ShownClock(std::int64_t utcMilliseconds);

/// "2026-11-23T14:05:09Z", as ReadMoment takes it in any zone.
std::string WrittenMoment(std::int64_t utcMilliseconds);

/// What `text` says: "2d", "3h", "90m" before `now`; "2026-11-23", the day's begin; "2026-11-23T14:05", with
/// ":09" for the seconds, in the machine's zone, with a "Z" behind it in UTC. Nothing for anything else, or
/// for a date that there isn't.
std::optional<std::int64_t> ReadMoment(std::string_view text, std::int64_t now);

} // namespace halyard
