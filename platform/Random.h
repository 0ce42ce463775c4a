#pragma once

#include <cstddef>
#include <string>

namespace halyard {

/// A source of random numbers.
class Random {
  public:
    virtual ~Random() = default;
    /// Seeds anew: from the machine's entropy in the real world; without effect in a replayed one.
    virtual void Reseed() = 0;
    /// 0 or more, below 1.
    virtual double Fraction() = 0;
    /// Bytes for a key, which nobody can tell from what else was drawn.
    virtual std::string Secret(std::size_t count) = 0;
};

} // namespace halyard
