// The only source that knows the library, whose header takes seconds to compile.

#include "bridge/Toml.h"

#include <algorithm>
#include <optional>
#include <toml++/toml.h>

namespace halyard {

namespace {

constexpr int MostDots = 128;

/// Where a key of too many parts stands. The library makes a table of each part and drops them one inside the
/// other, so the longest file that is one key would cost it the stack.
std::optional<TomlPlace> OverlongKey(std::string_view utf8) {
    TomlPlace place{1, 1};
    int dots = 0;
    char before = '.'; // dots side by side make no key
    for (const char c : utf8) {
        if (c == '.') {
            if (before != '.' && ++dots > MostDots) return place;
        } else if (std::string_view(",={}[]\n").find(c) != std::string_view::npos) {
            dots = 0;
        }
        if (c != ' ' && c != '\t') before = c;
        if (c == '\n') ++place.line, place.column = 0;
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++place.column; // the head of a character
    }
    return std::nullopt;
}

TomlPlace PlaceOf(const toml::source_position& at) { return {at.line, at.column}; }

TomlValue ValueOf(const toml::node& node) {
    using Kind = TomlValue::Kind;
    TomlValue value;
    value.place = PlaceOf(node.source().begin);
    if (const auto* text = node.as_string()) {
        value.kind = Kind::Text;
        value.text = text->get();
    } else if (const auto* number = node.as_integer()) {
        value.kind = Kind::Number;
        value.number = number->get();
    } else if (const auto* on = node.as_boolean()) {
        value.kind = Kind::Switch;
        value.on = on->get();
    } else if (const auto* list = node.as_array()) {
        value.kind = Kind::List;
        for (const auto& item : *list) value.items.push_back(ValueOf(item));
    } else if (const auto* table = node.as_table()) {
        value.kind = Kind::Table;
        for (const auto& [key, member] : *table)
            value.members.push_back({std::string(key.str()), PlaceOf(key.source().begin), ValueOf(member)});
        std::ranges::stable_sort(value.members, {}, &TomlMember::place);
    }
    return value;
}

} // namespace

std::variant<TomlValue, TomlMistake> ReadToml(std::string_view utf8) {
    if (const auto place = OverlongKey(utf8)) return TomlMistake{*place, "the key has too many parts"};
    const auto result = toml::parse(utf8);
    if (result) return ValueOf(result.table());
    const auto& error = result.error();
    return TomlMistake{PlaceOf(error.source().begin), std::string(error.description())};
}

} // namespace halyard
