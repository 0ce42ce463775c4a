#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

namespace halyard {

/// How many there were of late. Moments are Platform::Milliseconds and never go back.
class AlarmTally {
  public:
    static constexpr std::size_t Most = 20'000; ///< that are counted

    void Add(std::int64_t now) {
        if (moments.size() >= Most) moments.pop_front();
        moments.push_back(now);
    }
    /// Those of the last `span` ms; older ones are forgotten.
    std::size_t Count(std::int64_t now, std::int64_t span) {
        while (!moments.empty() && moments.front() <= now - span) moments.pop_front();
        return moments.size();
    }
    void Clear() { moments.clear(); }

  private:
    std::deque<std::int64_t> moments;
};

} // namespace halyard
