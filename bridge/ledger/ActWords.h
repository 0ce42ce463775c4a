#pragma once

// An act's words in the search index. The index keeps no texts: what is taken out must be said again as it
// was put in, so texts change by TakeOutWords, the change, PutInWords.

#include "platform/Database.h"

#include <cstdint>
#include <string>

namespace halyard {

/// What the rows say of the act now; empty for one that isn't there.
std::string ActWords(Connection& file, std::int64_t act);
void PutInWords(Connection& file, std::int64_t act);
void TakeOutWords(Connection& file, std::int64_t act);

} // namespace halyard
