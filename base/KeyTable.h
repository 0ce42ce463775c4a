#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

/// Finds numbers by texts that somebody else keeps: `KeyOf(id)`, handed to each call, gives the text of a
/// number.
class KeyTable {
  public:
    using Id = std::uint32_t;

    template <typename KeyOf>
    std::optional<Id> Find(std::string_view key, KeyOf keyOf) const {
        if (slots.empty()) return std::nullopt;
        const auto hash = HashOf(key);
        for (auto at = hash & Mask(); slots[at].used; at = (at + 1) & Mask())
            if (slots[at].hash == hash && keyOf(slots[at].id) == key) return slots[at].id;
        return std::nullopt;
    }
    /// `key` isn't there yet.
    void Add(std::string_view key, Id id) {
        if ((count + 1) * 4 > slots.size() * 3) Grow();
        Put({HashOf(key), 1, id});
        ++count;
    }
    /// `key` is there, with `id`.
    void Remove(std::string_view key, Id id) {
        auto at = HashOf(key) & Mask();
        while (slots[at].id != id || !slots[at].used) at = (at + 1) & Mask();
        --count;
        // What stands behind the gap and would not be found across it moves into it.
        for (auto next = (at + 1) & Mask(); slots[next].used; next = (next + 1) & Mask()) {
            const auto home = slots[next].hash & Mask();
            if (((next - home) & Mask()) < ((next - at) & Mask())) continue;
            slots[at] = slots[next];
            at = next;
        }
        slots[at].used = false;
    }
    void Clear() {
        slots = {};
        count = 0;
    }

  private:
    struct Slot {
        std::uint32_t hash : 31;
        std::uint32_t used : 1;
        Id id;
    };
    static std::uint32_t HashOf(std::string_view key) {
        const std::uint64_t hash = std::hash<std::string_view>()(key);
        return static_cast<std::uint32_t>(hash ^ hash >> 32) & 0x7FFFFFFF;
    }
    std::size_t Mask() const { return slots.size() - 1; }
    void Put(Slot slot) {
        auto at = slot.hash & Mask();
        while (slots[at].used) at = (at + 1) & Mask();
        slots[at] = slot;
    }
    void Grow() {
        auto old = std::move(slots);
        slots.assign(old.empty() ? 8 : old.size() * 2, Slot{0, 0, 0});
        for (const auto& slot : old)
            if (slot.used) Put(slot);
    }

    std::vector<Slot> slots; ///< a power of two, at most three quarters of them used
    std::size_t count = 0;
};

} // namespace halyard
