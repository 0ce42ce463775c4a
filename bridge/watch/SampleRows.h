#pragma once

// The samples of the ledger's file. Runs in a job of the reader.

#include "bridge/ledger/Facts.h"
#include "platform/Database.h"

#include <cstdint>
#include <vector>

namespace halyard {

/// From `first` on, in minutes since 1970, oldest first; at most two days of them.
std::vector<SampleFact> ReadSamples(Connection& file, std::int64_t first);

} // namespace halyard
