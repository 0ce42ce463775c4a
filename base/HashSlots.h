#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace halyard {

/// Numbers by the hashes of what they stand for; several may have one hash. Eight bytes a place, at most four
/// fifths of the places used.
class HashSlots {
  public:
    using Id = std::uint32_t;

    /// Calls `visit` with each number under `hash` until it gives true.
    template <typename Visitor>
    void Visit(std::uint64_t hash, Visitor visit) const {
        if (slots.empty()) return;
        const auto tag = TagOf(hash);
        for (auto at = tag & Mask(); slots[at].used; at = (at + 1) & Mask())
            if (slots[at].tag == tag && visit(slots[at].id)) return;
    }
    /// Calls `visit` with each number, in no order.
    template <typename Visitor>
    void VisitAll(Visitor visit) const {
        for (const auto& slot : slots)
            if (slot.used) visit(slot.id);
    }
    void Add(std::uint64_t hash, Id id) {
        if ((count + 1) * 5 > slots.size() * 4) Grow();
        Put({TagOf(hash), 1, id});
        ++count;
    }
    /// `id` is there, under `hash`.
    void Remove(std::uint64_t hash, Id id) {
        auto at = TagOf(hash) & Mask();
        while (slots[at].id != id || !slots[at].used) at = (at + 1) & Mask();
        --count;
        // What stands behind the gap and would not be found across it moves into it.
        for (auto next = (at + 1) & Mask(); slots[next].used; next = (next + 1) & Mask()) {
            const auto home = slots[next].tag & Mask();
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
        std::uint32_t tag : 31;
        std::uint32_t used : 1;
        Id id;
    };
    static std::uint32_t TagOf(std::uint64_t hash) {
        return static_cast<std::uint32_t>(hash ^ hash >> 32) & 0x7FFFFFFF;
    }
    std::size_t Mask() const { return slots.size() - 1; }
    void Put(Slot slot) {
        auto at = slot.tag & Mask();
        while (slots[at].used) at = (at + 1) & Mask();
        slots[at] = slot;
    }
    void Grow() {
        auto old = std::move(slots);
        slots.assign(old.empty() ? 8 : old.size() * 2, Slot{0, 0, 0});
        for (const auto& slot : old)
            if (slot.used) Put(slot);
    }

    std::vector<Slot> slots; ///< a power of two
    std::size_t count = 0;
};

} // namespace halyard
