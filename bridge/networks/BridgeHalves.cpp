#include "bridge/networks/BridgeHalves.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::string_view partingLine = "# ---- Halyard's own part, written anew with each choice. What "
                                         "stands above this line stays as it is. ----";

/// The end of the parting line at `at`, behind its line's end; 0 when it isn't one.
std::size_t EndOfParting(std::string_view bytes, std::size_t at) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const auto before = bytes.substr(0, at);
    if (!before.empty() && before.back() != '\n' && before != byteOrderMark) return 0;
    auto end = at + partingLine.size();
    if (end < bytes.size() && bytes[end] == '\r') ++end;
    if (end == bytes.size()) return end;
    return bytes[end] == '\n' ? end + 1 : 0;
}

} // namespace

BridgeHalves HalvesOf(std::string_view bytes) {
    for (auto at = bytes.find(partingLine); at != std::string_view::npos;
         at = bytes.find(partingLine, at + 1)) {
        const auto end = EndOfParting(bytes, at);
        if (end == 0) continue;
        const auto lines = std::ranges::count(bytes.substr(0, end), '\n');
        return {bytes.substr(0, at), bytes.substr(end), static_cast<std::size_t>(lines)};
    }
    return {bytes, {}, 0};
}

std::string JoinedHalves(std::string_view operators, std::string_view own) {
    std::string bytes(operators);
    if (!bytes.empty() && bytes.back() != '\n') bytes += '\n';
    return bytes.append(partingLine).append("\n").append(own);
}

} // namespace halyard
