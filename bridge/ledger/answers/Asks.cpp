#include "bridge/ledger/answers/Asks.h"

#include "base/Text.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t LongestNote = 1000;
constexpr std::size_t LongestAsked = 100;

/// Takes the first word, or what stands in quotes, off the front of `text`.
std::string TakeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool quoted = text.starts_with('"');
    if (quoted) text.remove_prefix(1);
    const auto end = std::min(text.find(quoted ? '"' : ' '), text.size());
    std::string word(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return word;
}

std::optional<Ask::What> WhatOf(const std::string& word) {
    constexpr std::string_view words[] = {"why", "last", "undo", "note", "health"};
    for (std::size_t index = 0; index < std::size(words); ++index)
        if (word == words[index]) return static_cast<Ask::What>(index);
    return std::nullopt;
}

std::optional<std::int64_t> NumberOf(std::string_view digits) {
    constexpr std::size_t most = 18;
    if (digits.empty() || digits.size() > most) return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return number;
}

/// `word` is what stands behind the command. False when the command doesn't go on so.
bool TakeFirst(Ask& ask, const std::string& word) {
    const bool isName = !NormalizeName(word).empty() && word.size() <= LongestAsked;
    if (isName) ask.name = word;
    if (ask.what == Ask::What::Why || ask.what == Ask::What::Note) return isName;
    if (word.empty()) return true;
    const auto number = NumberOf(word[0] == '#' ? std::string_view(word).substr(1) : std::string_view(word));
    if (ask.what == Ask::What::Last) {
        ask.name.clear();
        ask.count = static_cast<int>(std::clamp<std::int64_t>(number.value_or(0), 0, Ask::MostActs));
        return ask.count > 0;
    }
    if (ask.what != Ask::What::Undo) return false;
    if (word[0] != '#') return isName;
    ask.name.clear();
    ask.act = number.value_or(0);
    return ask.act > 0;
}

} // namespace

std::optional<Ask> ReadAsk(const std::string& message) {
    const auto stripped = Trim(StripHTML(message));
    std::string_view rest = stripped;
    const auto what = WhatOf(Lower(TakeWord(rest)));
    if (!what) return std::nullopt;
    Ask ask;
    ask.what = *what;
    if (!TakeFirst(ask, TakeWord(rest))) return std::nullopt;
    const auto text = Trim(rest);
    if (ask.what == Ask::What::Note) ask.text = text.substr(0, LongestNote);
    if (text.empty() == (ask.what == Ask::What::Note)) return std::nullopt;
    return ask;
}

} // namespace halyard
