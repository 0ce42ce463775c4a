#pragma once

// The part of bridge.toml that Halyard writes itself: which network was chosen where, what it may do with the
// management of each, and to which hosts roasted passwords may go. Texts are Windows-1252.

#include "bridge/networks/ManagementTerms.h"

#include <string>
#include <string_view>
#include <vector>

namespace halyard {

struct NetworkChoice {
    std::string file;    ///< the settings file's canonical path
    std::string account; ///< the account's normalised name
    std::string network;
};

struct NetworkManagement {
    std::string network;
    ManagementTerms terms;
};

struct RoastingPermit {
    std::string network;
    std::string host;
};

/// Of choices and permits, the newest stand last.
struct OwnPart {
    std::string last; ///< the network chosen last; empty when none was
    std::vector<NetworkChoice> chosen;
    std::vector<NetworkManagement> management;
    std::vector<RoastingPermit> roasting;
};

} // namespace halyard
