#pragma once

// What the lists hold by the ledger: a list's newest whole content and the changes since then, folded. Runs
// in a job of Read; texts are UTF-8.

#include "base/News.h"
#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// One entry on one list.
struct Standing {
    ListName list = ListName::None;
    std::int64_t room = 0; ///< row of rooms, of an eject list; 0 for the others
    std::string roomName;
    std::int16_t exchange = 0;
    std::int64_t since = 0; ///< ms UTC
    bool wasSeen = false;   ///< false: it stood there when the ledger first looked, at `since`
    std::int64_t act = 0;   ///< that put it there; 0 for none that is known
};

/// On which lists the entry stands now, the seven of the options first, then eject lists. `person` is the row
/// of persons whose key it is, 0 for none (then eject lists are left out).
std::vector<Standing> StandsOn(Connection& connection, std::string_view entry, std::int64_t person);

/// What one of the seven lists held just before the change of that number, in its order.
std::vector<std::string> ContentBefore(Connection& connection, ListName list, std::int64_t change);
/// What it holds now.
std::vector<std::string> ContentNow(Connection& connection, ListName list);

} // namespace halyard
