#pragma once

// The jobs of a database on a connection, on the caller's thread: what a Database does on its threads and a
// program without them does at once.

#include "platform/sqlite/SqliteConnection.h"

namespace halyard {

/// One transaction, rolled back when the job failed; afterwards the log is looked after.
DatabaseResult RunWrite(SqliteConnection& connection, const Database::Job& job);
/// Outside a transaction.
DatabaseResult RunMaintain(SqliteConnection& connection, const Database::Job& job);
/// One read transaction in which nothing can be written. `cancelled` is asked often and may be empty.
DatabaseResult RunRead(SqliteConnection& connection, const Database::Job& job,
                       std::function<bool()> cancelled = nullptr);

} // namespace halyard
