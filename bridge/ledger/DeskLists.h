#pragma once

// The desk's lists and options as the ledger keeps them, read where they stand.

#include "bridge/ledger/Facts.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class Options;
class TillerSock;

/// The whole of one of the option lists, of an eject list with its room; empty for one that isn't there.
Entries ListEntries(Options& options, ListName list, const NamedRoom& room);

/// Options and permissions, which have no fact of their own: what became another since the last look.
class OptionWatch {
  public:
    /// `options` outlives it.
    explicit OptionWatch(Options& options);

    /// Before and after; nothing where the key is new or gone.
    struct Difference {
        std::string key;
        MaybeText before, after;
    };
    std::vector<Difference> Look();
    /// Only ops have permissions: who they are is another matter now.
    void OpsChanged() { opsChanged = true; }
    /// "key", a tab, the value, as they were at the last look.
    Entries Whole() const;

  private:
    template <typename Visit>
    void EachValue(Visit&& visit);
    void LookAtPermissions(std::vector<Difference>& differences);

    Options& options;
    struct Value {
        std::string key, value;
    };
    std::vector<Value> values; ///< in the order of the option table
    std::map<std::string, std::string> permissions;
    std::uint64_t permissionChanges = 0;
    bool opsChanged = true;
};

} // namespace halyard
