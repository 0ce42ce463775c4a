#include "bridge/ledger/Lookalikes.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace halyard {

namespace {

constexpr std::size_t LongestEdited = 40;

/// Characters that stand for another, or (0) for nothing.
struct Fold {
    std::string_view from;
    char to;
};
constexpr Fold Folds[] = {
    {" .-_'`\xB4\xB7\xAD\xA0\x91\x92\x96\x97", 0},
    {"0\xD2\xD3\xD4\xD5\xD6\xD8\xF0\xF2\xF3\xF4\xF5\xF6\xF8", 'o'},
    {"1i!|\xA1\xA6\xCC\xCD\xCE\xCF\xEC\xED\xEE\xEF", 'l'},
    {"4@\xAA\xC0\xC1\xC2\xC3\xC4\xC5\xE0\xE1\xE2\xE3\xE4\xE5", 'a'},
    {"3\x80\xC8\xC9\xCA\xCB\xE8\xE9\xEA\xEB", 'e'},
    {"5$\x8A\x9A\xA7", 's'},
    {"7+\x86", 't'},
    {"8\xDF", 'b'},
    {"9q", 'g'},
    {"2\x8E\x9E", 'z'},
    {"\xA2\xA9\xC7\xE7", 'c'},
    {"\xD1\xF1", 'n'},
    {"\xB5\xD9\xDA\xDB\xDC\xF9\xFA\xFB\xFC", 'u'},
    {"\x9F\xA5\xDD\xFD\xFF", 'y'},
    {"\xD0", 'd'},
    {"\xD7", 'x'},
    {"\x83", 'f'},
    {"\xDE\xFE", 'p'},
};

const std::array<char, 256>& Table() {
    static const auto table = [] {
        std::array<char, 256> made{};
        for (std::size_t code = 0; code < made.size(); ++code)
            made[code] = LowerChar(static_cast<char>(code));
        for (const auto& fold : Folds)
            for (const char c : fold.from) made[static_cast<unsigned char>(c)] = fold.to;
        return made;
    }();
    return table;
}

} // namespace

std::string Skeleton(std::string_view key) {
    std::string skeleton;
    for (const char c : key) {
        const char folded = Table()[static_cast<unsigned char>(LowerChar(c))];
        if (folded == 0) continue;
        if (folded == 'n' && skeleton.ends_with('r'))
            skeleton.back() = 'm';
        else if (folded == 'v' && skeleton.ends_with('v'))
            skeleton.back() = 'w';
        else
            skeleton += folded;
    }
    return skeleton;
}

std::vector<std::string> OneEditFrom(std::string_view skeleton) {
    std::vector<std::string> edits;
    if (skeleton.size() > LongestEdited) return edits;
    std::string letters = "abcdefghjklmnoprstuvwxyz6";
    for (const char c : skeleton)
        if (letters.find(c) == std::string::npos) letters += c;
    const std::string whole(skeleton);
    for (std::size_t at = 0; at <= whole.size(); ++at) {
        const auto head = whole.substr(0, at);
        if (at < whole.size()) edits.push_back(head + whole.substr(at + 1));
        for (const char letter : letters) {
            edits.push_back(head + letter + whole.substr(at));
            if (at < whole.size()) edits.push_back(head + letter + whole.substr(at + 1));
        }
    }
    std::sort(edits.begin(), edits.end());
    edits.erase(std::unique(edits.begin(), edits.end()), edits.end());
    edits.erase(std::remove(edits.begin(), edits.end(), whole), edits.end());
    return edits;
}

} // namespace halyard
