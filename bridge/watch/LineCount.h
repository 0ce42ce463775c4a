#pragma once

// How many lines came in the last minute, second by second. To count one more costs next to nothing.

#include <algorithm>
#include <array>
#include <cstdint>

namespace halyard {

class LineCount {
  public:
    /// A line came at this moment, ms; moments don't go back.
    void Add(std::int64_t now) {
        if (now >= secondEnds) Begin(now);
        ++seconds[current];
        last = now;
    }
    /// True while none came; when the last one did, ms.
    bool empty() const { return last < 0; }
    std::int64_t back() const { return last; }
    /// Those of the last sixty seconds, the running one among them.
    int InLastMinute(std::int64_t now) const {
        const auto past = now < secondEnds ? 0 : (now - secondEnds) / 1000 + 1;
        int count = 0;
        for (std::int64_t back = 0; back + past < Kept; ++back)
            count += seconds[(current + Kept - static_cast<std::size_t>(back)) % Kept];
        return count;
    }

  private:
    static constexpr std::int64_t Kept = 60;

    void Begin(std::int64_t now) {
        const auto past = (now - secondEnds) / 1000 + 1;
        for (std::int64_t step = 0; step < std::min(past, Kept); ++step) {
            current = (current + 1) % Kept;
            seconds[current] = 0;
        }
        secondEnds += past * 1000;
    }

    std::array<int, Kept> seconds{};
    std::size_t current = 0;
    std::int64_t secondEnds = 1000; // of the current one
    std::int64_t last = -1;
};

} // namespace halyard
