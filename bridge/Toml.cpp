// The only source that knows the library, whose header takes seconds to compile.

#include "bridge/Toml.h"

#include "bridge/TomlGuard.h"

#include <algorithm>
#include <functional>

// The library takes for certain, and lets the compiler take for certain, what a wrong text makes untrue.
// Where it doesn't, it comes to the mistakes that it tells.
#undef NDEBUG
#define TOML_ASSERT(expression) static_assert(true)
#include <toml++/toml.h>

namespace halyard {

namespace {

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
        std::ranges::stable_sort(value.members, std::less<>(), &TomlMember::place);
    }
    return value;
}

} // namespace

std::variant<TomlValue, TomlMistake> ReadToml(std::string_view utf8) {
    if (auto refused = RefusedToml(utf8)) return *refused;
    const auto result = toml::parse(utf8);
    if (result) return ValueOf(result.table());
    const auto& error = result.error();
    return TomlMistake{PlaceOf(error.source().begin), std::string(error.description())};
}

} // namespace halyard
