#pragma once

// What the window Watch asks of others: to drop what waits, and to show the ledger. What is empty can't be
// done, and its button takes no press. Texts are Windows-1252.

#include <cstdint>
#include <functional>
#include <string>

namespace halyard {

struct WatchHooks {
    // The room is a socket slot; each says whether something was taken out, or how much.
    std::function<bool(std::int16_t room, std::int64_t number)> dropLine;
    std::function<bool(std::int16_t room, std::int32_t id)> dropBan;
    std::function<int(const std::string& name)> dropPerson; ///< in all rooms
    std::function<int(const std::string& op)> dropOp;
    /// Seconds between two bans of a room.
    std::function<float(std::int16_t room)> banPause;
    /// Shows the acts between two moments, ms UTC.
    std::function<void(std::int64_t since, std::int64_t until)> openLedger;
};

} // namespace halyard
