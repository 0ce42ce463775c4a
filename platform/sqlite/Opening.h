#pragma once

// How the file of a database is opened: made, checked, upgraded, refused or put aside.

#include "platform/sqlite/SqliteConnection.h"

namespace halyard {

enum class OpenMode {
    /// Beside whoever writes. Nothing is made, upgraded or put aside; a file of another version is refused.
    ReadOnly,
    /// The one writer: what OpenOutcome tells of.
    ReadWrite,
};

struct OpenedConnection {
    OpenOutcome outcome = OpenOutcome::Failed;
    DatabaseResult result;                        ///< why nothing is open, or what was put aside where
    std::unique_ptr<SqliteConnection> connection; ///< null unless IsOpen(outcome)
};

/// On the caller's thread. A file is in write-ahead mode and synced at checkpoints only: a crash of the
/// program loses nothing, and after a power cut the file is whole but the newest transactions, those since
/// the last checkpoint, may be missing from its end. What is deleted is overwritten.
OpenedConnection OpenConnection(const DatabaseSpec& spec, OpenMode mode);

} // namespace halyard
