#pragma once

// Who was put out how often of late.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>

namespace halyard {

class PutOutCount {
  public:
    static constexpr std::size_t Alarm = 5;
    static constexpr std::int64_t Window = 600000; ///< ms
    static constexpr std::size_t MostNames = 1000;

    /// Counts one of `name`, normalised, at `now` (ms). True for the fifth within ten minutes, after which
    /// the count begins anew.
    bool Add(const std::string& name, std::int64_t now) {
        std::erase_if(moments, [&](const auto& each) { return each.second.back() < now - Window; });
        if (moments.size() >= MostNames && !moments.contains(name)) moments.erase(moments.begin());
        auto& mine = moments[name];
        mine.push_back(now);
        while (mine.front() < now - Window) mine.pop_front();
        if (mine.size() < Alarm) return false;
        moments.erase(name);
        return true;
    }

  private:
    std::map<std::string, std::deque<std::int64_t>> moments;
};

} // namespace halyard
