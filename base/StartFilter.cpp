#include "base/StartFilter.h"

#include "base/Text.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace halyard {

namespace {

// A byte a place, since that is what is asked for soonest. About one start in ten passes by chance.
constexpr std::size_t placesPerPattern = 8;
constexpr std::size_t fewestPlaces = std::size_t{1} << 12;
constexpr std::size_t mostPlaces = std::size_t{1} << 20;
constexpr std::size_t words = 1 << 16;

constexpr unsigned char CaseBit = 0x20;
constexpr std::uint32_t CaseBits = 0x20202020;
constexpr std::uint32_t Mixer = 0x9E3779B1; // spreads a start over the top bits

std::size_t Byte(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) | CaseBit;
}

std::size_t TwoAt(std::string_view text, std::size_t at) { return Byte(text, at) << 8 | Byte(text, at + 1); }

std::size_t ThreeAt(std::string_view text, std::size_t at) {
    return (TwoAt(text, at) * 251 + Byte(text, at + 2)) % words;
}

std::uint32_t FourAt(const char* at) {
    std::uint32_t start = 0;
    std::memcpy(&start, at, sizeof start);
    return start | CaseBits;
}

std::size_t PlaceOf(std::uint32_t start, std::size_t mask) { return start * Mixer >> 12 & mask; }

/// The capital of a small letter that more than the bit tells from it; the letter itself for all others.
char OtherForm(char small) {
    for (int code = 0; code < 256; ++code) {
        const auto form = static_cast<char>(code);
        if (LowerChar(form) == small && ((form ^ small) & ~CaseBit) != 0) return form;
    }
    return small;
}

std::array<char, 256> MakeOtherForms() {
    std::array<char, 256> forms{};
    for (std::size_t code = 0; code < forms.size(); ++code) forms[code] = OtherForm(static_cast<char>(code));
    return forms;
}

} // namespace

StartFilter::StartFilter(std::size_t patterns) {
    fours.assign(std::clamp(std::bit_ceil(patterns * placesPerPattern), fewestPlaces, mostPlaces), 0);
}

void StartFilter::Mark(std::string_view pattern) {
    if (pattern.size() < Whole) shorter[pattern.size()] = true;
    std::array<char, Whole> start{};
    const auto size = std::min(pattern.size(), Whole);
    std::copy_n(pattern.begin(), size, start.begin());
    if (size > 0) MarkFrom(start, 0, size);
}

/// Marks the first `size` characters in every form that those from `at` on have.
void StartFilter::MarkFrom(std::array<char, Whole>& start, std::size_t at, std::size_t size) {
    static const auto otherForms = MakeOtherForms();
    if (at == size) return MarkStart({start.data(), size});
    MarkFrom(start, at + 1, size);
    const auto small = start[at];
    const auto other = otherForms[static_cast<unsigned char>(small)];
    if (other == small) return;
    start[at] = other;
    MarkFrom(start, at + 1, size);
    start[at] = small;
}

void StartFilter::MarkStart(std::string_view start) {
    if (start.size() == 1) ones.set(Byte(start, 0));
    if (start.size() == 2) {
        twos.resize(words);
        twos[TwoAt(start, 0)] = true;
    }
    if (start.size() == 3) {
        threes.resize(words);
        threes[ThreeAt(start, 0)] = true;
    }
    if (start.size() < Whole) return;
    fours[PlaceOf(FourAt(start.data()), fours.size() - 1)] = 1;
}

std::size_t StartFilter::Next(std::string_view text, std::size_t from) const {
    if (from == 0 && shorter[0]) return 0;
    const bool anyShort = shorter[1] || shorter[2] || shorter[3];
    const auto whole = text.size() >= Whole ? text.size() - Whole + 1 : 0;
    // By value: the compiler doesn't look them up anew at each position then.
    const auto marked = [places = fours.data(), mask = fours.size() - 1, begin = text.data()](
                            std::size_t at) { return places[PlaceOf(FourAt(begin + at), mask)]; };
    auto at = from;
    while (at < whole) {
        // Four at a time, since most texts hold no start at all.
        if (!anyShort && at + 4 <= whole &&
            (marked(at) | marked(at + 1) | marked(at + 2) | marked(at + 3)) == 0) {
            at += 4;
            continue;
        }
        if (marked(at) != 0 || (anyShort && IsShort(text, at))) return at;
        ++at;
    }
    for (; anyShort && at < text.size(); ++at)
        if (IsShort(text, at)) return at;
    return text.size() + 1;
}

bool StartFilter::IsShort(std::string_view text, std::size_t at) const {
    const auto left = text.size() - at;
    return ones[Byte(text, at)] || (shorter[2] && left >= 2 && twos[TwoAt(text, at)]) ||
           (shorter[3] && left >= 3 && threes[ThreeAt(text, at)]);
}

} // namespace halyard
