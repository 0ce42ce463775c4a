#pragma once

// Where the operator's part of bridge.toml ends and Halyard's own begins.

#include <cstddef>
#include <string>
#include <string_view>

namespace halyard {

struct BridgeHalves {
    std::string_view operators; ///< up to the line that parts them
    std::string_view own;       ///< behind that line; empty when there is none
    std::size_t ownLine = 0;    ///< how many lines stand before the own part
};

BridgeHalves HalvesOf(std::string_view bytes);

/// `operators`, byte for byte, the line that parts them, and `own`. A last line without its end gets one.
std::string JoinedHalves(std::string_view operators, std::string_view own);

} // namespace halyard
