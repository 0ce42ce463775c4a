#include "bridge/ledger/reading/Visible.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace halyard {

namespace {

struct Character {
    std::uint32_t code = 0xFFFD;
    std::size_t bytes = 1;
    bool valid = false;
};

/// The character that `text`, which isn't empty, begins with.
Character FirstCharacter(std::string_view text) {
    const auto byte = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[at]));
    };
    const auto lead = byte(0);
    if (lead < 0x80) return {lead, 1, true};
    const std::size_t length = lead >= 0xF0 && lead < 0xF5   ? 4
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                                                             : 0;
    if (length == 0 || text.size() < length) return {};
    std::uint32_t code = lead & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0U) != 0x80U) return {};
        code = code << 6 | (byte(at) & 0x3FU);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
    return {code, length, true};
}

bool Unseen(std::uint32_t code) {
    return (code >= 0x200B && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
           (code >= 0x2060 && code <= 0x206F) || code == 0x061C || code == 0xFEFF || code == 0xAD;
}

} // namespace

std::string Visible(std::string_view utf8) {
    std::string shown;
    shown.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = FirstCharacter(utf8.substr(at));
        char escaped[12];
        if (!character.valid) {
            shown += "\xEF\xBF\xBD";
        } else if (character.code < 0x20 || (character.code >= 0x7F && character.code < 0xA0)) {
            std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned>(character.code));
            shown += escaped;
        } else if (Unseen(character.code)) {
            std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(character.code));
            shown += escaped;
        } else {
            shown += utf8.substr(at, character.bytes);
        }
        at += character.bytes;
    }
    return shown;
}

} // namespace halyard
