#include "bridge/ledger/LastLines.h"

#include "base/Text.h"
#include "bridge/ledger/Texts.h"

#include <algorithm>
#include <cstring>

namespace halyard {

namespace {

constexpr std::uint64_t EveryByte = 0x0101010101010101ULL;
constexpr std::size_t LongestName = 255;

/// Up to eight characters as a number.
std::uint64_t Word(const char* text, std::size_t length) {
    std::uint64_t word = 0;
    std::memcpy(&word, text, length);
    return word;
}

bool HasBlank(std::uint64_t word) {
    const auto turned = word ^ (EveryByte * ' ');
    return ((turned - EveryByte) & ~turned & (EveryByte * 0x80)) != 0;
}

} // namespace

/// Equal for all spellings of a name. Letters count by their low half, in which capitals and small letters of
/// Windows-1252 are alike.
std::size_t LastLines::SlotOf(std::string_view name) {
    const auto length = std::min<std::size_t>(name.size(), 16);
    const auto first = Word(name.data(), std::min<std::size_t>(length, 8));
    const auto second = length > 8 ? Word(name.data() + 8, length - 8) : 0;
    if (name.size() > 16 || HasBlank(first) || HasBlank(second)) {
        std::array<char, 16> packed;
        std::size_t count = 0;
        for (const char c : name)
            if (c != ' ' && count < packed.size()) packed[count++] = c;
        if (count < name.size()) return SlotOf({packed.data(), count});
    }
    constexpr auto High = EveryByte * 0x70;
    const auto mixed =
        ((first | High) * 0x9E3779B97F4A7C15ULL) ^ ((second | (second ? High : 0)) * 0xC2B2AE3D27D4EB4FULL);
    return (mixed ^ (mixed >> 29)) * 0x9E3779B97F4A7C15ULL >> 53;
}

void LastLines::Add(std::int64_t at, std::int16_t room, std::string_view name, std::string_view line) {
    name = name.substr(0, LongestName);
    if (name.empty()) return;
    line = line.substr(0, LongestText);
    if (!ring) ring = std::make_unique<char[]>(Bytes);
    const auto size = (sizeof(Head) + name.size() + line.size() + 7) & ~std::size_t{7};
    // A line stands in one piece.
    if (const auto rest = Bytes - end % Bytes; rest < size) end += rest;
    auto& slot = last[SlotOf(name)];
    const Head head{slot, at, room, static_cast<std::uint16_t>(name.size()),
                    static_cast<std::uint16_t>(line.size())};
    char* place = ring.get() + end % Bytes;
    std::memcpy(place, &head, sizeof head);
    std::memcpy(place + sizeof head, name.data(), name.size());
    std::memcpy(place + sizeof head + name.size(), line.data(), line.size());
    slot = end + 1;
    end += size;
}

std::vector<LastLines::Line> LastLines::Of(std::string_view name, std::int64_t since,
                                           std::size_t count) const {
    std::vector<Line> lines;
    name = name.substr(0, LongestName);
    if (name.empty() || !ring) return lines;
    for (auto next = last[SlotOf(name)]; next != 0 && lines.size() < count;) {
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
