#include "platform/sqlite/SqliteStatement.h"

#include "platform/sqlite/SqliteConnection.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace halyard {

SqliteStatement::SqliteStatement(SqliteConnection& connection, const std::string& sql)
    : connection(connection) {
    if (connection.Failed()) return;
    try {
        statement.emplace(connection.Library(), sql);
    } catch (const SQLite::Exception& failure) {
        connection.FailWith(failure.getErrorCode(), failure.what());
    }
}

template <typename Action>
Statement& SqliteStatement::Try(Action action) {
    if (connection.Failed() || !statement) return *this;
    try {
        action(*statement);
    } catch (const SQLite::Exception& failure) {
        connection.FailWith(failure.getErrorCode(), failure.what());
    }
    return *this;
}

Statement& SqliteStatement::Bind(int position, std::int64_t number) {
    return Try([&](SQLite::Statement& own) { own.bind(position, number); });
}

Statement& SqliteStatement::Bind(int position, std::string_view text) {
    return Try([&](SQLite::Statement& own) { own.bind(position, std::string(text)); });
}

Statement& SqliteStatement::BindBlob(int position, std::string_view bytes) {
    // Without an address it would be null, not empty.
    const char* start = bytes.empty() ? "" : bytes.data();
    return Try([&](SQLite::Statement& own) { own.bind(position, start, static_cast<int>(bytes.size())); });
}

Statement& SqliteStatement::BindNull(int position) {
    return Try([&](SQLite::Statement& own) { own.bind(position); });
}

bool SqliteStatement::Step() {
    if (connection.Failed() || !statement || ended) return false;
    if (connection.Cancelled()) {
        connection.Fail(DatabaseFault::Cancelled, "Cancelled.");
        return false;
    }
    const int code = statement->tryExecuteStep();
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) connection.FailWith(code, statement->getErrorMsg());
    statement->tryReset();
    ended = true;
    return false;
}

void SqliteStatement::Reset() {
    ended = false;
    if (!statement) return;
    statement->tryReset();
    try {
        statement->clearBindings();
    } catch (const SQLite::Exception& failure) {
        connection.FailWith(failure.getErrorCode(), failure.what());
    }
}

bool SqliteStatement::Has(int column) const {
    return statement && statement->hasRow() && column >= 0 && column < statement->getColumnCount();
}

std::int64_t SqliteStatement::Integer(int column) const {
    return Has(column) ? statement->getColumn(column).getInt64() : 0;
}

std::string SqliteStatement::Text(int column) const { return Blob(column); }

std::string SqliteStatement::Blob(int column) const {
    if (!Has(column)) return {};
    return statement->getColumn(column).getString();
}

bool SqliteStatement::IsNull(int column) const {
    return !Has(column) || statement->getColumn(column).isNull();
}

} // namespace halyard
