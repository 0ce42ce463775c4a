#pragma once

// The database of the bot's machine with a tap on it, like that on its sockets: whoever watches reads what
// has been written, and may let writing fail for a while. The run owns the tap, the bot each database.

#include "platform/Database.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace halyard {

/// Of the ledger that the bot opened last; it stays when the bot has let it go.
struct DatabaseTap {
    std::shared_ptr<Database> file; ///< null before the first
    DatabaseFault fault{};          ///< each transaction fails so at its end, until it is None again
    bool written = false;           ///< since whoever watches said false

    /// Runs at once.
    void Read(const Database::Job& job) const;
    /// What it holds in memory.
    std::size_t Bytes() const;
};

/// Databases in memory that answer at once, seen through `tap`, which outlives them; an empty function where
/// there is none to be had.
std::function<std::unique_ptr<Database>()> TappedDatabases(DatabaseTap& tap);

} // namespace halyard
