#pragma once

// The numbers of persons, rooms, rules and accounts: looked up or made, and remembered. The scribe owns the
// one; texts are Windows-1252, and 0 is none.

#include "bridge/ledger/Facts.h"
#include "platform/Database.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace halyard {

class RowIds {
  public:
    /// In whatever spelling; one with capitals or blanks becomes the one that is shown.
    std::int64_t Person(Connection& file, const std::string& name);
    std::int64_t Room(Connection& file, const NamedRoom& room);
    std::int64_t Rule(Connection& file, RuleKind kind, const std::string& entry);
    std::int64_t Account(Connection& file, const std::string& network, const std::string& name);
    void Forget();

  private:
    struct Known {
        std::int64_t id = 0;
        std::string spelled;
    };
    Known FindPerson(Connection& file, const std::string& key, const std::string& spelled);

    std::unordered_map<std::string, Known> persons;
    std::unordered_map<std::string, std::int64_t> others;
};

/// The value, or null for 0.
Statement& BindId(Statement& statement, int position, std::int64_t id);

} // namespace halyard
