#pragma once

// The list of the system: insertion-ordered, counted from 1, with optional string keys.
// A look-up of what is not there gives a default-made value (an empty text, a null pointer),
// because absence is tested everywhere by the emptiness of the result.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace halyard {

template <typename T>
class Collection {
    struct Node {
        T value;
        std::string key;
        std::uint64_t serial;
    };
    using Nodes = std::deque<std::unique_ptr<Node>>;

  public:
    /// Walks the values in order; invalidated by every change of the collection.
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        explicit Iterator(typename Nodes::const_iterator at) : at(at) {}
        const T& operator*() const { return (*at)->value; }
        Iterator& operator++() { return ++at, *this; }
        Iterator operator++(int) {
            auto before = *this;
            ++at;
            return before;
        }
        bool operator!=(const Iterator& other) const { return at != other.at; }
        bool operator==(const Iterator& other) const { return at == other.at; }

      private:
        typename Nodes::const_iterator at;
    };

    Collection() = default;
    Collection(const Collection& other) { *this = other; }
    Collection& operator=(const Collection& other) {
        if (this == &other) return *this;
        Clear();
        for (const auto& node : other.nodes) Add(node->value, node->key);
        return *this;
    }
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection&&) noexcept = default;
    ~Collection() = default;

    std::size_t Count() const { return nodes.size(); }

    /// Appends `value`, under `key` unless that is empty. False, and no change, when the key is taken.
    bool Add(T value, std::string_view key = {}) {
        if (!key.empty() && keys.contains(key)) return false;
        nodes.push_back(std::make_unique<Node>(Node{std::move(value), std::string(key), ++lastSerial}));
        if (!key.empty()) keys.emplace(nodes.back()->key, nodes.back().get());
        return true;
    }

    /// The value at `position`, from 1; a default-made one outside 1 to Count().
    const T& Item(std::ptrdiff_t position) const {
        return Holds(position) ? nodes[static_cast<std::size_t>(position - 1)]->value : None();
    }
    /// The value under `key`; a default-made one when the key is absent.
    const T& Item(std::string_view key) const {
        auto found = keys.find(key);
        return found == keys.end() ? None() : found->second->value;
    }

    /// Removes the value at `position`, from 1. False when there is none.
    bool Remove(std::ptrdiff_t position) {
        if (!Holds(position)) return false;
        auto at = nodes.begin() + (position - 1);
        if (!(*at)->key.empty()) keys.erase((*at)->key);
        nodes.erase(at);
        return true;
    }
    /// Removes the value under `key`. False when the key is absent.
    bool Remove(std::string_view key) {
        auto position = Position(key);
        return position != 0 && Remove(position);
    }

    /// Removes every value for whose position, from 1, `gone` gives true: asked once each, in order.
    template <typename Gone>
    void RemoveIf(Gone gone) {
        std::size_t position = 0;
        const auto last = std::remove_if(nodes.begin(), nodes.end(), [&](const auto& node) {
            const bool goes = gone(++position);
            if (goes && !node->key.empty()) keys.erase(node->key);
            return goes;
        });
        nodes.erase(last, nodes.end());
    }

    void Clear() {
        keys.clear();
        nodes.clear();
    }

    /// The position of `key`, from 1; 0 when it is absent. Serials only grow, so the order is searchable.
    std::ptrdiff_t Position(std::string_view key) const {
        auto found = keys.find(key);
        if (found == keys.end()) return 0;
        auto serial = found->second->serial;
        auto at =
            std::lower_bound(nodes.begin(), nodes.end(), serial,
                             [](const auto& node, std::uint64_t wanted) { return node->serial < wanted; });
        return at - nodes.begin() + 1;
    }

    Iterator begin() const { return Iterator(nodes.begin()); }
    Iterator end() const { return Iterator(nodes.end()); }

  private:
    bool Holds(std::ptrdiff_t position) const {
        return position >= 1 && static_cast<std::size_t>(position) <= nodes.size();
    }
    static const T& None() {
        static const T none{};
        return none;
    }

    Nodes nodes;
    std::unordered_map<std::string_view, Node*> keys; // views into the nodes' own keys
    std::uint64_t lastSerial = 0;
};

} // namespace halyard
