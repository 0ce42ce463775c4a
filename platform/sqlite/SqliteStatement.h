#pragma once

// A statement of a SqliteConnection, which owns it and keeps it by its text.

#include "platform/Database.h"

#include <SQLiteCpp/Statement.h>
#include <optional>

namespace halyard {

class SqliteConnection;

class SqliteStatement : public Statement {
  public:
    /// A text that can't be prepared fails the connection.
    SqliteStatement(SqliteConnection& connection, const std::string& sql);

    Statement& Bind(int position, std::int64_t number) override;
    Statement& Bind(int position, std::string_view text) override;
    Statement& BindBlob(int position, std::string_view bytes) override;
    Statement& BindNull(int position) override;
    bool Step() override;
    void Reset() override;
    std::int64_t Integer(int column) const override;
    std::string Text(int column) const override;
    std::string Blob(int column) const override;
    bool IsNull(int column) const override;

    /// Whether there is something to step through.
    bool IsPrepared() const { return statement.has_value(); }

  private:
    template <typename Action>
    Statement& Try(Action action);
    bool Has(int column) const;

    SqliteConnection& connection;
    std::optional<SQLite::Statement> statement;
    bool ended = false; ///< and reset already, so that it counts as no reader
};

} // namespace halyard
