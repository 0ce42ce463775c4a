#include "base/Text.h"

#include <array>

namespace halyard {

namespace {

constexpr std::array<char, 256> MakeLowerTable() {
    std::array<char, 256> table{};
    for (int code = 0; code < 256; ++code) {
        int lower = code;
        if ((code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7)) lower = code + 32;
        if (code == 0x8A || code == 0x8C || code == 0x8E) lower = code + 16;
        if (code == 0x9F) lower = 0xFF;
        table[static_cast<std::size_t>(code)] = static_cast<char>(lower);
    }
    return table;
}

constexpr std::array<char, 256> lowerTable = MakeLowerTable();

} // namespace

std::string Mid(std::string_view text, std::size_t start, std::size_t length) {
    if (start == 0 || start > text.size()) return {};
    return std::string(text.substr(start - 1, length));
}

std::string Left(std::string_view text, std::size_t length) { return std::string(text.substr(0, length)); }

char LowerChar(char c) { return lowerTable[static_cast<unsigned char>(c)]; }

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = LowerChar(c);
    return lower;
}

std::string Trim(std::string_view text) {
    auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string NormalizeName(std::string_view text) {
    std::string name;
    name.reserve(text.size());
    for (char c : text)
        if (c != ' ') name.push_back(LowerChar(c));
    return name;
}

bool SameName(std::string_view one, std::string_view other) {
    std::size_t at = 0;
    for (char c : other) {
        if (c == ' ') continue;
        at = one.find_first_not_of(' ', at);
        if (at == std::string_view::npos || LowerChar(one[at++]) != LowerChar(c)) return false;
    }
    return at >= one.size() || one.find_first_not_of(' ', at) == std::string_view::npos;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string replaced;
    std::size_t from = 0;
    for (auto at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
        replaced.append(text, from, at - from).append(with);
        from = at + what.size();
    }
    return replaced.append(text, from);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator, std::size_t limit) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    auto from = std::size_t{0};
    while (!separator.empty() && (limit == 0 || parts.size() + 1 < limit)) {
        auto at = text.find(separator, from);
        if (at == std::string_view::npos) break;
        parts.emplace_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    parts.emplace_back(text.substr(from));
    return parts;
}

bool ContainsNoCase(std::string_view text, std::string_view what) { return FindNoCase(text, what) != 0; }

std::size_t FindNoCase(std::string_view text, std::string_view what) {
    if (what.empty()) return 1;
    if (what.size() > text.size()) return 0;
    return Lower(text).find(Lower(what)) + 1; // npos + 1 is 0
}

std::string StripHTML(std::string_view text) {
    std::string stripped;
    stripped.reserve(text.size());
    std::size_t from = 0;
    while (true) {
        auto open = text.find('<', from);
        auto close = open == std::string_view::npos ? open : text.find('>', open);
        if (close == std::string_view::npos) return stripped.append(text, from);
        stripped.append(text, from, open - from);
        from = close + 1;
    }
}

std::string BoolText(bool value) { return value ? "True" : "False"; }

} // namespace halyard
