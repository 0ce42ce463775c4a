#pragma once

// Follows every time ban from its start to its end: it must end in its time, and the service must then be
// asked to let the person in again. The invariants of a run own the one.

#include "base/Collection.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class LiftWatch {
  public:
    struct TimeBan {
        std::string record; ///< its first six fields, which stay as they are
        std::string user;
        std::string room;
        std::int16_t slot;
        std::int64_t due; ///< ms
    };

    /// A request to let somebody in again went out, in this event.
    void Asked(const std::string& room, const std::string& user) { asked.insert({room, user}); }
    /// False when after an event at a moment in ms, with so many records, there is nothing to check.
    bool Due(std::size_t records, std::int64_t now) const {
        return records != running.size() || !asked.empty() || (!running.empty() && now > nextDue);
    }
    /// The records after an event at a moment in ms. `canLift` tells whether a ban that has just ended can
    /// still be lifted, for its slot is still its room's. Empty, or what is wrong.
    std::string Check(const Collection<std::string>& records, std::int64_t now,
                      const std::function<bool(const TimeBan&)>& canLift);
    /// Time bans that have ended, and those of them that nobody could lift any more.
    std::size_t EndedCount() const { return ended; }
    std::size_t StrandedCount() const { return stranded; }

  private:
    using Requests = std::set<std::pair<std::string, std::string>>; ///< rooms and users
    std::string EndMissing(const Collection<std::string>& records, std::int64_t now, const Requests& requests,
                           const std::function<bool(const TimeBan&)>& canLift);

    std::vector<TimeBan> running; ///< in the order of the records
    Requests asked;
    std::int64_t nextDue = 0;
    std::size_t ended = 0;
    std::size_t stranded = 0;
};

} // namespace halyard
