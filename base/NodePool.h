#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace halyard {

/// Places for nodes that stay where they are, side by side, and are known by a number. A place that was given
/// back is taken again first.
template <typename Node>
class NodePool {
  public:
    using Id = std::uint32_t;

    Node& operator[](Id id) { return pieces[id / PieceSize][id % PieceSize]; }
    const Node& operator[](Id id) const { return pieces[id / PieceSize][id % PieceSize]; }

    /// A place with a default-made node.
    Id Take() {
        if (!free.empty()) {
            const auto id = free.back();
            free.pop_back();
            return id;
        }
        if (taken % PieceSize == 0) pieces.push_back(std::make_unique<Node[]>(PieceSize));
        return taken++;
    }
    void Give(Id id) {
        (*this)[id] = Node();
        free.push_back(id);
    }
    void Clear() { *this = NodePool(); }

  private:
    static constexpr std::size_t PieceSize = 16;

    std::vector<std::unique_ptr<Node[]>> pieces;
    std::vector<Id> free;
    Id taken = 0;
};

} // namespace halyard
