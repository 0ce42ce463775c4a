#include "bridge/ledger/LastLines.h"

#include "base/Text.h"
#include "bridge/ledger/Texts.h"

#include <algorithm>
#include <cstring>

namespace halyard {

namespace {

constexpr std::uint64_t EveryByte = 0x0101010101010101ULL;
constexpr std::size_t LongestName = 255;

template <typename Number>
Number Load(const char* text) {
    Number number;
    std::memcpy(&number, text, sizeof number);
    return number;
}

/// Up to eight characters as a number, the first in the lowest byte. What is
/// behind them says nothing more.
std::uint64_t Word(const char* text, std::size_t length) {
    if (length >= 8) return Load<std::uint64_t>(text);
    if (length >= 4)
        return Load<std::uint32_t>(text) | std::uint64_t{Load<std::uint32_t>(text + length - 4)}
                                               << (8 * (length - 4));
    const auto at = [&](std::size_t place) { return std::uint64_t{static_cast<unsigned char>(text[place])}; };
    return length == 0 ? 0 : at(0) | at(length / 2) << 8 | at(length - 1) << 16;
}

bool HasBlank(std::uint64_t word) {
    const auto turned = word ^ (EveryByte * ' ');
    return ((turned - EveryByte) & ~turned & (EveryByte * 0x80)) != 0;
}

/// The first and last eight characters of what stands in a name's first sixteen: all of most names.
struct Ends {
    std::uint64_t first, second;
    explicit Ends(std::string_view name)
        : first(Word(name.data(), std::min<std::size_t>(name.size(), 16))),
          second(name.size() > 8 ? Word(name.data() + std::min<std::size_t>(name.size(), 16) - 8, 8) : 0) {}
};

/// A place in a table of 2,048, equal for all spellings of a name. Letters count by their low half, in which
/// capitals and small letters of Windows-1252 are alike.
std::size_t SlotOf(std::string_view name, const Ends& ends) {
    if (name.size() > 16 || HasBlank(ends.first) || HasBlank(ends.second)) {
        std::array<char, 16> packed;
        std::size_t count = 0;
        for (const char c : name)
            if (c != ' ' && count < packed.size()) packed[count++] = c;
        if (count < name.size()) {
            const std::string_view rest(packed.data(), count);
            return SlotOf(rest, Ends(rest));
        }
    }
    constexpr auto High = EveryByte * 0x70;
    const auto mixed = (ends.first | High) * 0x9E3779B97F4A7C15ULL ^
                       (ends.second | (ends.second != 0 ? High : 0)) * 0xC2B2AE3D27D4EB4FULL;
    return (mixed ^ mixed >> 29) * 0x9E3779B97F4A7C15ULL >> 53;
}

} // namespace

void LastLines::Add(std::int64_t at, std::int16_t room, std::string_view name, std::string_view line) {
    name = name.substr(0, LongestName);
    if (name.empty()) return;
    line = line.substr(0, LongestText);
    if (!ring) ring = std::make_unique<char[]>(Bytes);
    // Eight more than it needs, since most names are stored as two words.
    const auto size = (sizeof(Head) + name.size() + line.size() + 15) & ~std::size_t{7};
    // A line stands in one piece.
    if (const auto rest = Bytes - end % Bytes; rest < size) end += rest;
    const Ends ends(name);
    auto& slot = last[SlotOf(name, ends)];
    const Head head{slot, at, room, static_cast<std::uint16_t>(name.size()),
                    static_cast<std::uint16_t>(line.size())};
    char* place = ring.get() + end % Bytes;
    std::memcpy(place, &head, sizeof head);
    place += sizeof head;
    if (name.size() > 16) {
        std::memcpy(place, name.data(), name.size());
    } else {
        std::memcpy(place, &ends.first, 8);
        if (name.size() > 8) std::memcpy(place + name.size() - 8, &ends.second, 8);
    }
    std::memcpy(place + name.size(), line.data(), line.size());
    slot = end + 1;
    end += size;
}

std::vector<LastLines::Line> LastLines::Of(std::string_view name, std::int64_t since,
                                           std::size_t count) const {
    std::vector<Line> lines;
    name = name.substr(0, LongestName);
    if (name.empty() || !ring) return lines;
    for (auto next = last[SlotOf(name, Ends(name))]; next != 0 && lines.size() < count;) {
        const auto begin = next - 1;
        if (begin + Bytes < end) break; // written over
        const char* place = ring.get() + begin % Bytes;
        Head head;
        std::memcpy(&head, place, sizeof head);
        if (head.at < since) break;
        const std::string_view text(place + sizeof head, std::size_t{head.nameLength} + head.lineLength);
        if (SameName(text.substr(0, head.nameLength), name))
            lines.push_back({head.at, head.room, std::string(text.substr(head.nameLength))});
        next = head.before;
    }
    std::reverse(lines.begin(), lines.end());
    return lines;
}

void LastLines::Clear() {
    ring.reset();
    end = 0;
    last.fill(0);
}

} // namespace halyard
