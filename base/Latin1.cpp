#include "base/Latin1.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace halyard {

namespace {

/// The characters of the bytes 128 to 159; everywhere else byte and character have the same number.
constexpr std::array<char32_t, 32> upperControls{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char FromCharacter(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    auto found = std::find(upperControls.begin(), upperControls.end(), character);
    return found == upperControls.end() ? '?' : static_cast<char>(0x80 + (found - upperControls.begin()));
}

struct Decoded {
    char32_t character;
    std::size_t length; // 0: broken
};

/// The character at the head of `utf8`; overlong forms, surrogates and cut sequences are broken.
Decoded Decode(std::string_view utf8) {
    auto lead = static_cast<unsigned char>(utf8[0]);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || utf8.size() < length) return {0, 0};
    char32_t character = lead & (0xFFu >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        auto next = static_cast<unsigned char>(utf8[at]);
        if ((next & 0xC0) != 0x80) return {0, 0};
        character = character << 6 | (next & 0x3F);
    }
    constexpr char32_t lowest[] = {0x80, 0x800, 0x10000};
    bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < lowest[length - 2] || character > 0x10FFFF || surrogate) return {0, 0};
    return {character, length};
}

void AppendUtf8(std::string& utf8, char32_t character) {
    auto put = [&utf8](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    if (character < 0x80) return put(character);
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

} // namespace

std::string FromUtf8(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        auto [character, length] = Decode(utf8);
        text.push_back(length == 0 ? '?' : FromCharacter(character));
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80u] : byte);
    }
    return utf8;
}

std::string FromUtf16(std::string_view utf16) {
    const bool lowFirst = utf16.starts_with("\xFF\xFE");
    if (lowFirst || utf16.starts_with("\xFE\xFF")) utf16.remove_prefix(2);
    std::string text;
    bool pair = false; // the first half of a character beyond 16 bits went before
    for (std::size_t at = 0; at < utf16.size(); at += 2) {
        const auto one = static_cast<unsigned char>(utf16[at]);
        const auto other = at + 1 < utf16.size() ? static_cast<unsigned char>(utf16[at + 1]) : 0;
        const char32_t unit = lowFirst ? other << 8 | one : one << 8 | other;
        const bool whole = at + 1 < utf16.size();
        const bool second = unit >= 0xDC00 && unit <= 0xDFFF;
        if (pair && second) {
            pair = false; // told already
            continue;
        }
        pair = whole && unit >= 0xD800 && unit <= 0xDBFF;
        text.push_back(whole ? FromCharacter(unit) : '?');
    }
    return text;
}

} // namespace halyard
