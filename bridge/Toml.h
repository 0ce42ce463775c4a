#pragma once

// A TOML text as values that know their places, so that a reader can say where a mistake stands. Texts are
// UTF-8, as they stand in the file.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace halyard {

/// From 1; a column is a character.
struct TomlPlace {
    std::size_t line = 0;
    std::size_t column = 0;
    auto operator<=>(const TomlPlace&) const = default;
};

struct TomlMember;

struct TomlValue {
    enum class Kind { Text, Number, Switch, List, Table, Other };

    Kind kind = Kind::Other; ///< fractions, dates and times are Other
    TomlPlace place;
    std::string text;
    std::int64_t number = 0;
    bool on = false;
    std::vector<TomlValue> items;    ///< of a list
    std::vector<TomlMember> members; ///< of a table, in the order of the file
};

struct TomlMember {
    std::string key;
    TomlPlace place; ///< of the key
    TomlValue value;
};

struct TomlMistake {
    TomlPlace place;
    std::string text;
};

/// The table that `utf8` is, or the first mistake of its form. Keys of more than 128 parts and values of more
/// than 16 in each other count as mistakes.
std::variant<TomlValue, TomlMistake> ReadToml(std::string_view utf8);

} // namespace halyard
