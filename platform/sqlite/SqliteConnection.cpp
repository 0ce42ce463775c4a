#include "platform/sqlite/SqliteConnection.h"

#include "platform/sqlite/Beside.h"
#include "platform/sqlite/SqliteStatement.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace halyard {

namespace {

/// More texts than the whole program has are ones with values in them.
constexpr std::size_t MostStatements = 200;
/// How long another program's lock is waited for, ms.
constexpr int BusyTimeout = 5000;
/// Steps of SQLite's machine between two looks at the flag: some tens of µs.
constexpr int StepsBetweenLooks = 2000;

DatabaseFault FaultOf(int code) {
    switch (code & 0xFF) {
    case SQLITE_FULL: return DatabaseFault::Full;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return DatabaseFault::Locked;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN: return DatabaseFault::NotWritable;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return DatabaseFault::Damaged;
    case SQLITE_INTERRUPT: return DatabaseFault::Cancelled;
    default: return DatabaseFault::Failed;
    }
}

int StopsWhenCancelled(void* connection) {
    return static_cast<const SqliteConnection*>(connection)->Cancelled() ? 1 : 0;
}

int NotesPages(void* pages, sqlite3*, const char*, int count) {
    *static_cast<int*>(pages) = count;
    return SQLITE_OK;
}

} // namespace

SqliteConnection::SqliteConnection(const std::string& path, int flags, const std::string& vfs) {
    try {
        library = std::make_unique<SQLite::Database>(path, flags | SQLite::OPEN_NOMUTEX, BusyTimeout, vfs);
    } catch (const SQLite::Exception& failure) {
        FailWith(failure.getErrorCode(), failure.what());
        return;
    }
    auto* handle = library->getHandle();
    // In the place of SQLite's own checkpoints, which would stall single commits.
    sqlite3_wal_hook(handle, NotesPages, &logPages);
    sqlite3_progress_handler(handle, StepsBetweenLooks, StopsWhenCancelled, this);
    // A file is input like others. Untrusted tables would be safer still, but full-text tables behind a
    // trigger count as such.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    library->tryExec("PRAGMA cell_size_check=ON");
}

SqliteConnection::~SqliteConnection() = default;

Statement& SqliteConnection::Prepare(std::string_view sql) {
    auto found = statements.find(sql);
    // A text that failed to be prepared may be a good one by now.
    if (found != statements.end() && !found->second->IsPrepared() && !Failed()) {
        statements.erase(found);
        found = statements.end();
    }
    if (found == statements.end()) {
        std::string text(sql);
        auto made = std::make_unique<SqliteStatement>(*this, text);
        found = statements.emplace(std::move(text), std::move(made)).first;
    }
    found->second->Reset();
    return *found->second;
}

bool SqliteConnection::Execute(std::string_view sql) {
    if (Failed()) return false;
    const int code = library->tryExec(std::string(sql));
    if (code != SQLITE_OK) FailWith(code, library->getErrorMsg());
    return !Failed();
}

std::int64_t SqliteConnection::LastRow() { return library ? library->getLastInsertRowid() : 0; }

std::int64_t SqliteConnection::Changes() { return library ? library->getChanges() : 0; }

void SqliteConnection::Fail(DatabaseFault fault, const std::string& words) {
    if (Failed()) return;
    result = {fault, words};
}

void SqliteConnection::FailWith(int code, const char* words) {
    const auto fault = FaultOf(code);
    Fail(fault, fault == DatabaseFault::Cancelled ? "Cancelled." : words);
}

void SqliteConnection::BeginJob(std::function<bool()> asksCancelled) {
    if (library) result = {};
    cancelled = std::move(asksCancelled);
}

void SqliteConnection::EndJob() {
    cancelled = nullptr;
    ResetAll();
    if (statements.size() > MostStatements) statements.clear();
    if (library && sqlite3_get_autocommit(library->getHandle()) == 0) library->tryExec("ROLLBACK");
}

void SqliteConnection::ResetAll() {
    for (const auto& [text, statement] : statements) statement->Reset();
}

std::int64_t SqliteConnection::Number(std::string_view sql) {
    auto& statement = Prepare(sql);
    const auto number = statement.Step() ? statement.Integer(0) : 0;
    statement.Reset();
    return number;
}

std::string SqliteConnection::Word(std::string_view sql) {
    auto& statement = Prepare(sql);
    auto word = statement.Step() ? statement.Text(0) : std::string();
    statement.Reset();
    return word;
}

std::int64_t SqliteConnection::LogBytes() {
    if (pageBytes == 0) pageBytes = Number("PRAGMA page_size");
    return logPages * pageBytes;
}

void SqliteConnection::Checkpoint(bool whole) {
    if (!library || logPages == 0) return;
    const int mode = whole ? SQLITE_CHECKPOINT_TRUNCATE : SQLITE_CHECKPOINT_PASSIVE;
    const int code = sqlite3_wal_checkpoint_v2(library->getHandle(), nullptr, mode, nullptr, nullptr);
    if (whole && code == SQLITE_OK) logPages = 0;
}

void SqliteConnection::LeaveLog(bool leave) {
    if (!library) return;
    sqlite3_db_config(library->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, leave ? 1 : 0, nullptr);
}

void SqliteConnection::Keep(std::unique_ptr<FileLock> held) { lock = std::move(held); }

} // namespace halyard
