#pragma once

// Random numbers that a seed repeats exactly on every machine: the SplitMix64 sequence, and ranges of our
// own, since those of standard libraries differ. The world has one, and each party one of its own.

#include "platform/Random.h"

#include <cstdint>

namespace halyard {

class SimRandom : public Random {
  public:
    explicit SimRandom(std::uint64_t seed) : state(seed) {}

    void Reseed() override {}
    double Fraction() override { return static_cast<double>(Next() >> 11) * 0x1p-53; }
    std::string Secret(std::size_t count) override;
    /// The next 64 bits.
    std::uint64_t Next();
    /// A number from `low` to `high`, both included; `low` when `high` is below it.
    std::int64_t Between(std::int64_t low, std::int64_t high);
    /// True with this probability. 0 and below draws nothing, so that a fault turned off shifts no sequence.
    bool Chance(double probability) { return probability > 0 && Fraction() < probability; }

  private:
    std::uint64_t state;
};

} // namespace halyard
