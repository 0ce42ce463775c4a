#pragma once

// The columns of the history as strips: stages, rates, lines heard and said, bans by rule, queue length.

#include "bridge/watch/History.h"
#include "platform/Strips.h"

#include <vector>

namespace halyard {

std::vector<Strips::Strip> StripsOf(const std::vector<HistoryColumn>& columns);
/// The time below about every sixth of them.
std::vector<Strips::Mark> MarksOf(const std::vector<HistoryColumn>& columns);

} // namespace halyard
