#pragma once

// Whether a ledger says what happened: the file is whole, each list is what its changes make of it, each act
// has one cause and each answer one request.

#include "platform/Database.h"

#include <string>
#include <vector>

namespace halyard {

/// What is wrong, in words; nothing when all is well. Runs in a job that may read for seconds.
std::vector<std::string> Verify(Connection& file);

} // namespace halyard
