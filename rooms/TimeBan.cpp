#include "rooms/TimeBan.h"

#include "base/Text.h"

#include <vector>

namespace halyard {

namespace {

constexpr std::int64_t TicksOfMinute = 61;

enum Field { User, Room, Exchange, Instance, RoomIndex, Minutes, MinutesLeft, SecondsLeft, FieldCount };

/// The user ends at the first ":", and the room, whose name may hold some, at the sixth from the end.
std::vector<std::string> Fields(const std::string& strRecord) {
    auto fields = Split(strRecord, ":");
    if (fields.size() > FieldCount) {
        const auto behindRoom = fields.end() - (FieldCount - Exchange);
        for (auto part = fields.begin() + Exchange; part != behindRoom; ++part) fields[Room] += ":" + *part;
        fields.erase(fields.begin() + Exchange, behindRoom);
    }
    fields.resize(FieldCount);
    return fields;
}

std::string Join(const std::vector<std::string>& fields) {
    std::string text;
    for (const auto& field : fields) text += (&field == &fields.front() ? "" : ":") + field;
    return text;
}

} // namespace

std::string NewTimeBan(const std::string& strUser, const std::string& strChatName, std::int16_t intExchange,
                       std::int16_t intInstance, std::int16_t intChatIndex, const std::string& strMinutes) {
    return Join({strUser, strChatName, std::to_string(intExchange), std::to_string(intInstance),
                 std::to_string(intChatIndex), strMinutes, strMinutes, "60"});
}

bool IsTimeBanOf(const std::string& strRecord, const std::string& strUser, const std::string& strChatName,
                 std::int16_t intExchange, std::int16_t intInstance) {
    const auto fields = Fields(strRecord);
    return SameName(fields[User], strUser) && SameName(fields[Room], strChatName) &&
           ToInt16(fields[Exchange]) == intExchange && ToInt16(fields[Instance]) == intInstance;
}

TimeBanFields ReadTimeBan(const std::string& strRecord) {
    const auto fields = Fields(strRecord);
    const auto minutes = RoundToInt32(Val(fields[MinutesLeft])).value_or(0);
    const auto seconds = RoundToInt32(Val(fields[SecondsLeft])).value_or(0);
    const auto left = minutes <= 0 ? 1 : (minutes - 1) * TicksOfMinute + seconds + 2;
    return {fields[User],
            fields[Room],
            ToInt16(fields[Exchange]).value_or(0),
            ToInt16(fields[Instance]).value_or(0),
            fields[Minutes],
            left,
            minutes < 0};
}

std::string WithTicksLeft(const std::string& strRecord, std::int64_t ticks) {
    auto fields = Fields(strRecord);
    const bool isLong = ticks >= 2;
    fields[MinutesLeft] = std::to_string(isLong ? (ticks - 2) / TicksOfMinute + 1 : ticks - 1);
    fields[SecondsLeft] = std::to_string(isLong ? (ticks - 2) % TicksOfMinute : 0);
    return Join(fields);
}

TimeBanTick TickTimeBan(const std::string& strRecord) {
    auto fields = Fields(strRecord);
    const double minutes = Val(fields[MinutesLeft]);
    const double seconds = Val(fields[SecondsLeft]);
    TimeBanTick tick;
    if (minutes <= 0) {
        tick.over = true;
        tick.user = fields[User];
        tick.intChatIndex = ToInt16(fields[RoomIndex]).value_or(0);
        tick.minutes = fields[Minutes];
        return tick;
    }
    if (seconds <= 0) {
        fields[MinutesLeft] = NumberText(minutes - 1);
        fields[SecondsLeft] = "60"; // without a second off: this tick is the 61st of the minute
    } else {
        fields[SecondsLeft] = NumberText(seconds - 1);
    }
    tick.record = Join(fields);
    return tick;
}

} // namespace halyard
