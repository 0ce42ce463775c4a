#include "oscar/networks/Reach.h"

#include "base/Text.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace halyard {

namespace {

std::optional<unsigned> NumberOf(std::string_view digits, int base, unsigned most) {
    unsigned value = 0;
    const auto* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, base);
    if (digits.empty() || result.ec != std::errc() || result.ptr != end || value > most) return std::nullopt;
    return value;
}

std::optional<std::uint32_t> FourBytes(std::string_view address) {
    const auto parts = Split(address, ".");
    if (parts.size() != 4) return std::nullopt;
    std::uint32_t bytes = 0;
    for (const auto& part : parts) {
        const auto byte = NumberOf(part, 10, 255);
        if (!byte) return std::nullopt;
        bytes = bytes << 8 | *byte;
    }
    return bytes;
}

Reach ReachOfFour(std::uint32_t bytes) {
    const auto in = [bytes](std::uint32_t network, int bits) {
        return (bytes ^ network) >> (32 - bits) == 0;
    };
    if (in(0, 8)) return Reach::Unspecified;
    if (in(0x7F000000, 8)) return Reach::Loopback;
    if (in(0x0A000000, 8) || in(0xAC100000, 12) || in(0xC0A80000, 16) || in(0xA9FE0000, 16))
        return Reach::Private;
    return Reach::Public;
}

using Groups = std::vector<std::uint32_t>; // of 16 bits

/// The groups of one side of "::", the last of which may be four bytes with dots.
std::optional<Groups> GroupsOf(std::string_view side) {
    Groups groups;
    if (side.empty()) return groups;
    const auto parts = Split(side, ":");
    for (std::size_t at = 0; at < parts.size(); ++at) {
        if (const auto four = FourBytes(parts[at]); four && at + 1 == parts.size()) {
            groups.push_back(*four >> 16);
            groups.push_back(*four & 0xFFFF);
        } else if (const auto group = NumberOf(parts[at], 16, 0xFFFF)) {
            groups.push_back(*group);
        } else {
            return std::nullopt;
        }
    }
    return groups;
}

std::optional<std::array<std::uint32_t, 8>> EightGroups(std::string_view address) {
    const auto gap = address.find("::");
    const auto head = GroupsOf(address.substr(0, gap));
    const auto tail = GroupsOf(gap == address.npos ? std::string_view() : address.substr(gap + 2));
    if (!head || !tail) return std::nullopt;
    const auto named = head->size() + tail->size();
    if (gap == address.npos ? named != 8 : named > 7) return std::nullopt;
    std::array<std::uint32_t, 8> groups{};
    std::copy(head->begin(), head->end(), groups.begin());
    std::copy(tail->begin(), tail->end(), groups.end() - static_cast<std::ptrdiff_t>(tail->size()));
    return groups;
}

Reach ReachOfEight(const std::array<std::uint32_t, 8>& groups) {
    std::uint32_t upper = 0; // of the first five
    for (std::size_t at = 0; at < 5; ++at) upper |= groups[at];
    if (upper == 0 && groups[5] == 0xFFFF) return ReachOfFour(groups[6] << 16 | groups[7]);
    if (upper == 0 && groups[5] == 0 && groups[6] == 0 && groups[7] <= 1)
        return groups[7] == 0 ? Reach::Unspecified : Reach::Loopback;
    if ((groups[0] & 0xFE00) == 0xFC00 || (groups[0] & 0xFFC0) == 0xFE80) return Reach::Private;
    return Reach::Public;
}

} // namespace

Reach ReachOf(std::string_view address) {
    if (address.size() >= 2 && address.front() == '[' && address.back() == ']')
        address = address.substr(1, address.size() - 2);
    if (address.empty()) return Reach::Unspecified;
    if (SameName(address, "localhost")) return Reach::Loopback;
    if (const auto four = FourBytes(address)) return ReachOfFour(*four);
    if (address.find(':') == address.npos) return Reach::Name;
    const auto eight = EightGroups(address.substr(0, address.find('%')));
    return eight ? ReachOfEight(*eight) : Reach::Name;
}

std::string ReachableHost(const std::string& redirect, const std::string& peer) {
    const auto from = ReachOf(peer);
    if (from != Reach::Loopback && from != Reach::Private && from != Reach::Public) return redirect;
    const auto to = ReachOf(redirect);
    const bool here = (to == Reach::Unspecified || to == Reach::Loopback) && from != Reach::Loopback;
    const bool inside = to == Reach::Private && from == Reach::Public;
    return here || inside ? peer : redirect;
}

} // namespace halyard
