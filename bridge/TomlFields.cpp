#include "bridge/TomlFields.h"

#include "base/Latin1.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t MostMistakes = 100;
constexpr std::size_t LongestShown = 200;

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string Range(std::int64_t least, std::int64_t most) {
    return "from " + std::to_string(least) + " to " + std::to_string(most);
}

} // namespace

void TomlMistakes::Add(const TomlPlace& place, std::string_view text) {
    if (++count <= MostMistakes) first.emplace_back(place, text);
}

std::vector<std::string> TomlMistakes::Texts() const {
    auto sorted = first;
    std::ranges::stable_sort(sorted, {}, &std::pair<TomlPlace, std::string>::first);
    std::vector<std::string> texts;
    for (const auto& [place, text] : sorted)
        texts.push_back("line " + std::to_string(place.line) + ", column " + std::to_string(place.column) +
                        ": " + text);
    if (count > MostMistakes) texts.push_back("more mistakes: " + std::to_string(count - MostMistakes));
    return texts;
}

bool TextBounds::Take(std::string_view text) const {
    return text.size() >= shortest && text.size() <= longest &&
           (controls || std::ranges::none_of(text, IsControl));
}

std::optional<std::string> TomlFields::Text(std::string_view key, const TextBounds& bounds) {
    const auto* member = Ask(key);
    return member ? TextOf(member->value, key, bounds) : std::nullopt;
}

std::optional<std::int64_t> TomlFields::Number(std::string_view key, std::int64_t least, std::int64_t most) {
    const auto* member = Ask(key);
    return member ? NumberOf(member->value, key, least, most) : std::nullopt;
}

std::optional<bool> TomlFields::Switch(std::string_view key) {
    const auto* member = Ask(key);
    if (!member) return std::nullopt;
    if (member->value.kind == TomlValue::Kind::Switch) return member->value.on;
    Tell(key, "must be true or false");
    return std::nullopt;
}

const std::vector<TomlValue>* TomlFields::List(std::string_view key, std::size_t longest) {
    const auto* member = Ask(key);
    if (!member) return nullptr;
    const auto& value = member->value;
    if (value.kind == TomlValue::Kind::List && value.items.size() <= longest) return &value.items;
    Tell(key, value.kind == TomlValue::Kind::List ? "may have at most " + std::to_string(longest) + " entries"
                                                  : "must be a list in brackets");
    return nullptr;
}

const TomlValue* TomlFields::Table(std::string_view key) {
    const auto* member = Ask(key);
    if (!member) return nullptr;
    if (member->value.kind == TomlValue::Kind::Table) return &member->value;
    Tell(key, "must be a table");
    return nullptr;
}

std::optional<std::string> TomlFields::NeedText(std::string_view key, const TextBounds& bounds) {
    if (!Find(key)) Tell(key, "is missing");
    return Text(key, bounds);
}

std::optional<std::string> TomlFields::TextOf(const TomlValue& item, std::string_view key,
                                              const TextBounds& bounds) {
    if (item.kind != TomlValue::Kind::Text) {
        Tell(item.place, key, "must be a text in quotes");
        return std::nullopt;
    }
    auto text = WholeFromUtf8(item.text);
    if (!text) {
        Tell(item.place, key, "has a character that Windows-1252 lacks");
    } else if (!bounds.Take(*text)) {
        const auto range =
            Range(static_cast<std::int64_t>(bounds.shortest), static_cast<std::int64_t>(bounds.longest));
        Tell(item.place, key,
             "must have " + range + " characters" +
                 (bounds.controls ? "" : ", none of them a control character"));
        text.reset();
    }
    return text;
}

std::optional<std::int64_t> TomlFields::NumberOf(const TomlValue& item, std::string_view key,
                                                 std::int64_t least, std::int64_t most) {
    if (item.kind == TomlValue::Kind::Number && item.number >= least && item.number <= most)
        return item.number;
    Tell(item.place, key,
         item.kind == TomlValue::Kind::Number ? "must be " + Range(least, most) : "must be a whole number");
    return std::nullopt;
}

void TomlFields::Tell(std::string_view key, std::string_view what) {
    const auto* member = Find(key);
    Tell(member ? member->value.place : table.place, key, what);
}

void TomlFields::Tell(const TomlPlace& place, std::string_view key, std::string_view what) {
    mistakes.Add(place, (path.empty() ? "" : path + ".") + ShownText(key) + " " + std::string(what));
}

void TomlFields::TellUnknown() {
    for (const auto& member : table.members)
        if (std::ranges::find(asked, member.key) == asked.end())
            Tell(member.place, member.key, "is no key that is known here");
}

const TomlMember* TomlFields::Ask(std::string_view key) {
    asked.push_back(key);
    return Find(key);
}

const TomlMember* TomlFields::Find(std::string_view key) const {
    const auto found = std::ranges::find(table.members, key, &TomlMember::key);
    return found == table.members.end() ? nullptr : &*found;
}

std::string ShownText(std::string_view utf8) {
    // A character has at most four bytes; one that is cut becomes a question mark and is cut off with it.
    auto text = FromUtf8(utf8.substr(0, 4 * (LongestShown + 1)));
    if (text.size() > LongestShown) text = text.substr(0, LongestShown) + "...";
    std::ranges::replace_if(text, IsControl, '?');
    return text;
}

std::optional<std::string> WholeFromUtf8(std::string_view utf8) {
    auto text = FromUtf8(utf8);
    if (ToUtf8(text) != utf8) return std::nullopt;
    return text;
}

} // namespace halyard
