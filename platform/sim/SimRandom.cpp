#include "platform/sim/SimRandom.h"

namespace halyard {

std::uint64_t SimRandom::Next() {
    state += 0x9E3779B97F4A7C15u;
    auto mixed = state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
}

std::int64_t SimRandom::Between(std::int64_t low, std::int64_t high) {
    if (high <= low) return low;
    // The remainder's bias is below 2^-32 for the ranges of a simulation.
    auto span = static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low) + 1;
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(low) + (span == 0 ? Next() : Next() % span));
}

std::string SimRandom::Secret(std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) bytes += static_cast<char>(Next() & 0xFF);
    return bytes;
}

} // namespace halyard
