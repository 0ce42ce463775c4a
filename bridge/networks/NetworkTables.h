#pragma once

// The operator's part of bridge.toml: the tables [networks.NAME].

#include "bridge/TomlFields.h"
#include "oscar/networks/Network.h"

#include <vector>

namespace halyard {

/// The networks that `file` defines, in its order, without the built-in ones. What is wrong is told; the
/// networks mean nothing then.
std::vector<Network> ReadNetworkTables(const TomlValue& file, TomlMistakes& mistakes);

} // namespace halyard
