#pragma once

// The record of one running time ban and its countdown, as text of eight fields joined by ":": user, room
// name, exchange, instance, socket slot, minutes asked for, minutes left, seconds left.

#include <cstdint>
#include <optional>
#include <string>

namespace halyard {

/// The record of a ban that starts now.
std::string NewTimeBan(const std::string& strUser, const std::string& strChatName, std::int16_t intExchange,
                       std::int16_t intInstance, std::int16_t intChatIndex, const std::string& strMinutes);

/// True when the record is of this person in this room; names are compared in lower case without blanks.
bool IsTimeBanOf(const std::string& strRecord, const std::string& strUser, const std::string& strChatName,
                 std::int16_t intExchange, std::int16_t intInstance);

/// A record in its parts, as far as somebody wants to know when it ends.
struct TimeBanFields {
    std::string user, room;
    std::int16_t exchange = 0, instance = 0;
    std::string minutes;          ///< as they were asked for
    std::int64_t secondsLeft = 0; ///< until the ban is lifted
    bool overdue = false;         ///< it couldn't be lifted when it was over
};
TimeBanFields ReadTimeBan(const std::string& strRecord);

/// What one second does to a record: it counts on, or it is over and the ban must be lifted.
struct TimeBanTick {
    std::string record; ///< the record to keep; empty when it is over
    bool over = false;
    std::string user; ///< whom to readmit when it is over
    std::int16_t intChatIndex = 0;
    std::string minutes; ///< as they were asked for
};

/// A minute takes 61 ticks, and the end comes on the tick after minutes left reach 0: on purpose, a ban of N
/// minutes ends after N x 61 + 1 ticks.
TimeBanTick TickTimeBan(const std::string& strRecord);

/// The same record with so many ticks left, at least 1; 0 makes it one that is overdue, which is over with
/// every tick.
std::string WithTicksLeft(const std::string& strRecord, std::int64_t ticks);

} // namespace halyard
