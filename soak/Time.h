#pragma once

#include <cstdint>

namespace halyard {

// Virtual time, in milliseconds.
inline constexpr std::int64_t second = 1000;
inline constexpr std::int64_t minute = 60 * second;
inline constexpr std::int64_t hour = 60 * minute;
inline constexpr std::int64_t day = 24 * hour;

} // namespace halyard
