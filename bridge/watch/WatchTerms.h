#pragma once

// What the operator wants to see of the watch in the main window.

namespace halyard {

struct WatchTerms {
    bool foot = true; ///< the foot line is seen

    bool operator==(const WatchTerms&) const = default;
};

} // namespace halyard
