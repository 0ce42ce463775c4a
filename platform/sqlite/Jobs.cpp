#include "platform/sqlite/Jobs.h"

namespace halyard {

namespace {

/// From here on the log is brought into the file beside readers, and from there on they are waited for.
constexpr std::int64_t LogToCheckpoint = std::int64_t{4} << 20;
constexpr std::int64_t LogToEmpty = std::int64_t{8} << 20;

void LookAfterLog(SqliteConnection& connection) {
    const auto bytes = connection.LogBytes();
    if (bytes >= LogToCheckpoint) connection.Checkpoint(bytes >= LogToEmpty);
}

} // namespace

DatabaseResult RunWrite(SqliteConnection& connection, const Database::Job& job) {
    connection.BeginJob(nullptr);
    if (connection.Execute("BEGIN IMMEDIATE")) {
        job(connection);
        connection.ResetAll();
        connection.Execute("COMMIT");
    }
    connection.EndJob();
    auto result = connection.Result();
    LookAfterLog(connection);
    return result;
}

DatabaseResult RunMaintain(SqliteConnection& connection, const Database::Job& job) {
    connection.BeginJob(nullptr);
    job(connection);
    connection.EndJob();
    return connection.Result();
}

DatabaseResult RunRead(SqliteConnection& connection, const Database::Job& job,
                       std::function<bool()> cancelled) {
    if (cancelled && cancelled()) return {DatabaseFault::Cancelled, "Cancelled."};
    connection.BeginJob(std::move(cancelled));
    if (connection.Execute("PRAGMA query_only=ON; BEGIN")) job(connection);
    connection.EndJob();
    auto result = connection.Result();
    // The writer's own connection may be the reader's too.
    connection.BeginJob(nullptr);
    connection.Execute("PRAGMA query_only=OFF");
    return result;
}

} // namespace halyard
