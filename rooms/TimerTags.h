#pragma once

// What a tag of the timer pool means: how long its interval is and which of a room's four send timers it
// names.

#include <array>
#include <string_view>

namespace halyard {

struct TimerTag {
    std::string_view name;
    int milliseconds;
    int sendSlot; ///< 0 to 3 for a send timer, -1 for the others
};

/// "ban" is not among them: its interval follows from the room's ban pause.
inline constexpr std::array<TimerTag, 8> TimerTags = {{
    {"msg", 1, 0},
    {"msg1", 8200, 1},
    {"msg2", 8500, 2},
    {"msg3", 11000, 3},
    {"firstjoin", 2000, -1},
    {"ping", 15000, -1},
    {"unrate", 30000, -1},
    {"tban", 1000, -1},
}};

/// The tag of this name; null when there is none.
constexpr const TimerTag* FindTimerTag(std::string_view name) {
    for (const auto& tag : TimerTags)
        if (tag.name == name) return &tag;
    return nullptr;
}

/// The send timer that `name` stands for, 0 to 3; -1 when it stands for none.
constexpr int SendSlotOf(std::string_view name) {
    const auto* tag = FindTimerTag(name);
    return tag ? tag->sendSlot : -1;
}

} // namespace halyard
