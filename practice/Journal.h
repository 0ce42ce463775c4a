#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace halyard {

/// One thing that happened on the practice network.
struct PracticeEvent {
    std::int64_t milliseconds; ///< the platform's time
    std::string room;          ///< empty when it concerns no room
    std::string who;           ///< empty when nobody in particular did it
    std::string what;          ///< such as "enters", "says hello"
};

using PracticeListener = std::function<void(const PracticeEvent&)>;

} // namespace halyard
