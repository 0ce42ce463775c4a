#pragma once

// Whom the ledger didn't know before a moment. Run in a job of Read; names are normalised, in UTF-8.

#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

/// Those of `names` upon whom nothing was done before `moment` (UTC ms), in their order.
std::vector<std::string> NewcomersOf(Connection& file, const std::vector<std::string>& names,
                                     std::int64_t moment);

} // namespace halyard
