#pragma once

// The list of the system: insertion-ordered, counted from 1, with optional string keys.
// A look-up of what is not there gives a default-made value (an empty text, a null pointer),
// because absence is tested everywhere by the emptiness of the result.

#include "base/KeyTable.h"
#include "base/NodePool.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace halyard {

template <typename T>
class Collection {
    static constexpr bool OfTexts = std::is_same_v<T, std::string>;
    struct KeyedNode {
        T value{};
        std::string key;
        std::uint64_t serial = 0;
    };
    /// Texts are mostly their own keys, and kept once; `otherKeys` has the others.
    struct TextNode {
        T value{};
        std::uint64_t ownKey : 1 = 0;
        std::uint64_t otherKey : 1 = 0;
        std::uint64_t serial : 62 = 0;
    };
    using Node = std::conditional_t<OfTexts, TextNode, KeyedNode>;
    using Id = typename NodePool<Node>::Id;
    using Order = std::deque<Id>;

  public:
    /// Walks the values in order; invalidated by every change of the collection.
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        Iterator(const NodePool<Node>& nodes, typename Order::const_iterator at) : nodes(&nodes), at(at) {}
        const T& operator*() const { return (*nodes)[*at].value; }
        Iterator& operator++() { return ++at, *this; }
        Iterator operator++(int) {
            auto before = *this;
            ++at;
            return before;
        }
        bool operator!=(const Iterator& other) const { return at != other.at; }
        bool operator==(const Iterator& other) const { return at == other.at; }

      private:
        const NodePool<Node>* nodes;
        typename Order::const_iterator at;
    };

    Collection() = default;
    Collection(const Collection& other) { *this = other; }
    Collection& operator=(const Collection& other) {
        if (this == &other) return *this;
        Clear();
        for (auto id : other.order) Add(other.nodes[id].value, other.KeyOf(id));
        return *this;
    }
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection&&) noexcept = default;
    ~Collection() = default;

    std::size_t Count() const { return order.size(); }

    /// Appends `value`, under `key` unless that is empty. False, and no change, when the key is taken.
    bool Add(T value, std::string_view key = {}) {
        if (!key.empty() && Find(key)) return false;
        const auto id = nodes.Take();
        auto& node = nodes[id];
        if constexpr (OfTexts) {
            node.ownKey = !key.empty() && value == key;
            node.otherKey = !key.empty() && !node.ownKey;
            if (node.otherKey) otherKeys.emplace(id, key);
        } else {
            node.key = key;
        }
        node.value = std::move(value);
        node.serial = ++lastSerial & LargestSerial;
        order.push_back(id);
        if (!key.empty()) keys.Add(KeyOf(id), id);
        return true;
    }

    /// The value at `position`, from 1; a default-made one outside 1 to Count().
    const T& Item(std::ptrdiff_t position) const {
        return Holds(position) ? nodes[order[static_cast<std::size_t>(position - 1)]].value : None();
    }
    /// The value under `key`; a default-made one when the key is absent.
    const T& Item(std::string_view key) const {
        const auto found = Find(key);
        return found ? nodes[*found].value : None();
    }

    /// Removes the value at `position`, from 1. False when there is none.
    bool Remove(std::ptrdiff_t position) {
        if (!Holds(position)) return false;
        const auto at = order.begin() + (position - 1);
        Forget(*at);
        order.erase(at);
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
        const auto last = std::remove_if(order.begin(), order.end(), [&](Id id) {
            const bool goes = gone(++position);
            if (goes) Forget(id);
            return goes;
        });
        order.erase(last, order.end());
    }

    void Clear() {
        keys.Clear();
        order.clear();
        nodes.Clear();
        otherKeys.clear();
    }

    /// The position of `key`, from 1; 0 when it is absent. Serials only grow, so the order is searchable.
    std::ptrdiff_t Position(std::string_view key) const {
        const auto found = Find(key);
        if (!found) return 0;
        auto at = std::lower_bound(order.begin(), order.end(), nodes[*found].serial,
                                   [this](Id id, std::uint64_t wanted) { return nodes[id].serial < wanted; });
        return at - order.begin() + 1;
    }

    Iterator begin() const { return Iterator(nodes, order.begin()); }
    Iterator end() const { return Iterator(nodes, order.end()); }

  private:
    bool Holds(std::ptrdiff_t position) const {
        return position >= 1 && static_cast<std::size_t>(position) <= order.size();
    }
    static const T& None() {
        static const T none{};
        return none;
    }
    std::string_view KeyOf(Id id) const {
        const auto& node = nodes[id];
        if constexpr (!OfTexts)
            return node.key;
        else if (node.ownKey)
            return node.value;
        else
            return node.otherKey ? std::string_view(otherKeys.at(id)) : std::string_view();
    }
    std::optional<Id> Find(std::string_view key) const {
        return keys.Find(key, [this](Id id) { return KeyOf(id); });
    }
    void Forget(Id id) {
        if (const auto key = KeyOf(id); !key.empty()) keys.Remove(key, id);
        otherKeys.erase(id);
        nodes.Give(id);
    }

    NodePool<Node> nodes;
    Order order;
    KeyTable keys;
    std::unordered_map<Id, std::string> otherKeys;
    static constexpr std::uint64_t LargestSerial = ~std::uint64_t{0} >> 2;
    std::uint64_t lastSerial = 0;
};

} // namespace halyard
