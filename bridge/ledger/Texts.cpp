#include "bridge/ledger/Texts.h"

#include "base/Latin1.h"
#include "base/Text.h"

namespace halyard {

std::string KeptText(std::string_view text) {
    auto utf8 = ToUtf8(text);
    if (text.find('\0') == text.npos) return utf8;
    return Replace(utf8, std::string_view("\0", 1), "\xE2\x90\x80");
}

std::string KeptEntry(std::string_view entry) {
    return entry.find('\n') == entry.npos ? KeptText(entry) : Replace(KeptText(entry), "\n", "\xE2\x90\x8A");
}

std::string StoneOf(std::int64_t person) { return "\xEE\x80\x80p" + std::to_string(person); }

} // namespace halyard
