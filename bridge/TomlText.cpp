#include "bridge/TomlText.h"

#include "base/Latin1.h"

namespace halyard {

std::string TomlQuoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : ToUtf8(text)) {
        if (c == '"' || c == '\\') quoted += '\\';
        if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) {
            quoted += c;
            continue;
        }
        constexpr std::string_view digits = "0123456789ABCDEF";
        quoted += "\\u00";
        quoted += digits[static_cast<unsigned char>(c) >> 4];
        quoted += digits[static_cast<unsigned char>(c) & 15];
    }
    return quoted + "\"";
}

std::string TomlTexts(const std::vector<std::string>& texts) {
    std::string list;
    for (const auto& text : texts) list += (list.empty() ? "" : ", ") + TomlQuoted(text);
    return "[" + list + "]";
}

std::string TomlLine(std::string_view key, std::string_view value) {
    return std::string(key) + " = " + std::string(value) + "\n";
}

} // namespace halyard
