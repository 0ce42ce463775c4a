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

/// Up to eight characters as a number, the first in the lowest byte.
std::uint64_t Word(const char* text, std::size_t length) {
    if (length >= 8) return Load<std::uint64_t>(text);
    if (length >= 4)
        return Load<std::uint32_t>(text) | std::uint64_t{Load<std::uint32_t>(text + length - 4)}
                                               << (8 * (length - 4));
    std::uint64_t word = 0;
    for (std::size_t place = 0; place < length; ++place)
        word |= std::uint64_t{static_cast<unsigned char>(text[place])} << (8 * place);
    return word;
}

/// The high bit of the first blank; 0 for none.
std::uint64_t FirstBlank(std::uint64_t word) {
    const auto turned = word ^ (EveryByte * ' ');
    const auto blanks = (turned - EveryByte) & ~turned & (EveryByte * 0x80);
    return blanks & (~blanks + 1);
}

/// The first sixteen characters of a name, its blanks left out.
struct Packed {
    std::uint64_t low, high;

    explicit Packed(std::string_view name) {
        std::array<char, 16> longer{};
        if (name.size() > longer.size()) {
            std::size_t count = 0;
            for (const char c : name)
                if (c != ' ' && count < longer.size()) longer[count++] = c;
            name = {longer.data(), count};
        }
        low = Word(name.data(), name.size());
        // What stands behind the first eight, by one look at the last eight.
        high = name.size() > 8
                   ? Load<std::uint64_t>(name.data() + name.size() - 8) >> (8 * (16 - name.size()))
                   : 0;
        while (const auto blank = FirstBlank(low)) {
            const auto before = (blank >> 7) - 1;
            low = (low & before) | ((low >> 8) & ~before) | high << 56;
            high >>= 8;
        }
        while (const auto blank = FirstBlank(high)) {
            const auto before = (blank >> 7) - 1;
            high = (high & before) | ((high >> 8) & ~before);
        }
    }
};

/// A place in a table of 2,048, equal for all spellings of a name. Letters count by their low half, in which
/// capitals and small letters of Windows-1252 are alike.
std::size_t PlaceOfName(std::string_view name) {
    constexpr auto Low = EveryByte * 0x0F;
    const Packed packed(name);
    const auto mixed =
        (packed.low & Low) * 0x9E3779B97F4A7C15ULL ^ (packed.high & Low) * 0xC2B2AE3D27D4EB4FULL;
    return (mixed ^ mixed >> 29) * 0x9E3779B97F4A7C15ULL >> 53;
}

/// Most names by two copies whose length the compiler knows.
void CopyName(char* to, std::string_view name) {
    if (name.size() < 8 || name.size() > 16) {
        std::memcpy(to, name.data(), name.size());
        return;
    }
    std::memcpy(to, name.data(), 8);
    std::memcpy(to + name.size() - 8, name.data() + name.size() - 8, 8);
}

} // namespace

void LastLines::Add(std::int64_t at, std::int16_t room, std::string_view name, std::string_view line) {
    name = name.substr(0, LongestName);
    if (name.empty()) return;
    line = line.substr(0, LongestText);
    if (!ring) ring = std::make_unique<char[]>(Bytes);
    const auto size = (sizeof(Head) + name.size() + line.size() + 7) & ~std::size_t{7};
    // A line stands in one piece.
    if (const auto rest = Bytes - end % Bytes; rest < size) end += rest;
    auto& slot = last[PlaceOfName(name)];
    const Head head{slot, at, room, static_cast<std::uint16_t>(name.size()),
                    static_cast<std::uint16_t>(line.size())};
    char* place = ring.get() + end % Bytes;
    std::memcpy(place, &head, sizeof head);
    place += sizeof head;
    CopyName(place, name);
    std::memcpy(place + name.size(), line.data(), line.size());
    slot = end + 1;
    end += size;
}

std::vector<LastLines::Line> LastLines::Of(std::string_view name, std::int64_t since,
                                           std::size_t count) const {
    std::vector<Line> lines;
    name = name.substr(0, LongestName);
    if (name.empty() || !ring) return lines;
    for (auto next = last[PlaceOfName(name)]; next != 0 && lines.size() < count;) {
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
