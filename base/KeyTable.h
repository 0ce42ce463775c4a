#pragma once

#include "base/HashSlots.h"

#include <functional>
#include <optional>
#include <string_view>

namespace halyard {

/// Finds numbers by texts that somebody else keeps: `KeyOf(id)`, handed to each call, gives the text of a
/// number.
class KeyTable {
  public:
    using Id = HashSlots::Id;

    template <typename KeyOf>
    std::optional<Id> Find(std::string_view key, KeyOf keyOf) const {
        std::optional<Id> found;
        slots.Visit(HashOf(key), [&](Id id) {
            if (keyOf(id) != key) return false;
            found = id;
            return true;
        });
        return found;
    }
    /// `key` isn't there yet.
    void Add(std::string_view key, Id id) { slots.Add(HashOf(key), id); }
    /// `key` is there, with `id`.
    void Remove(std::string_view key, Id id) { slots.Remove(HashOf(key), id); }
    void Clear() { slots.Clear(); }

  private:
    static std::uint64_t HashOf(std::string_view key) { return std::hash<std::string_view>()(key); }

    HashSlots slots;
};

} // namespace halyard
