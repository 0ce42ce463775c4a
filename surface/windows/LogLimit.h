#pragma once

#include <cstddef>

namespace halyard {

/// Characters in the log of a window: months of news must not fill the memory.
inline constexpr std::size_t LogLimit = 65535;

} // namespace halyard
