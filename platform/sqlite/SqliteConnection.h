#pragma once

// One open file of SQLite's, for jobs without threads: what OpenConnection (Opening.h) gives and what the
// jobs of a Database are run on (Jobs.h). The library's exceptions end here. It belongs to one thread at a
// time.

#include "platform/Database.h"

#include <SQLiteCpp/Database.h>
#include <map>

namespace halyard {

class FileLock;
class SqliteStatement;

class SqliteConnection : public Connection {
  public:
    /// Opens the file `path` (UTF-8; ":memory:" for none) with SQLite's flags. Failed at once when that went
    /// wrong.
    SqliteConnection(const std::string& path, int flags, const std::string& vfs);
    ~SqliteConnection() override;
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    Statement& Prepare(std::string_view sql) override;
    bool Execute(std::string_view sql) override;
    std::int64_t LastRow() override;
    std::int64_t Changes() override;
    bool Failed() const override { return !result.Ok(); }
    const DatabaseResult& Result() const override { return result; }
    void Fail(DatabaseFault fault, const std::string& words) override;
    bool Cancelled() const override { return cancelled && cancelled(); }

    /// Forgets the failure of the job before. `asksCancelled` is asked often, until EndJob; may be empty.
    void BeginJob(std::function<bool()> asksCancelled);
    /// Resets every statement and rolls back what is open. The result stays until the next job begins.
    void EndJob();
    /// Resets every statement, so that none of them counts as a reader.
    void ResetAll();

    /// Fails with one of SQLite's codes.
    void FailWith(int code, const char* words);
    SQLite::Database& Library() { return *library; }
    /// First row, first column of a text without parameters. 0 or empty when there is none.
    std::int64_t Number(std::string_view sql);
    std::string Word(std::string_view sql);
    /// Bytes that wait in the write-ahead log, as of the last commit.
    std::int64_t LogBytes();
    /// Brings the log into the file. `whole`: waits for readers and empties the log's file. What can't be
    /// done now is left to the next time.
    void Checkpoint(bool whole);
    /// Whether closing leaves the log beside the file, instead of bringing it in.
    void LeaveLog(bool leave);
    /// Holds the lock as long as the file is open.
    void Keep(std::unique_ptr<FileLock> held);

  private:
    std::unique_ptr<FileLock> lock;
    std::unique_ptr<SQLite::Database> library;
    std::map<std::string, std::unique_ptr<SqliteStatement>, std::less<>> statements;
    DatabaseResult result;
    std::function<bool()> cancelled;
    int logPages = 0;
    std::int64_t pageBytes = 0;
};

} // namespace halyard
