// Bans that lift themselves. The records live in memory only; whoever keeps them longer hears of each.

#include "base/Text.h"
#include "oscar/TillerSock.h"

#include <utility>

namespace halyard {

namespace {
constexpr int AlreadyTimeBanned = 124;
constexpr int TimeBanOver = 122;
} // namespace

void TillerSock::TbanUser(const std::string& strUser, const std::string& strChatName,
                          std::int16_t intExchange, std::int16_t intInstance, std::int16_t intTime,
                          std::int16_t intChatIndex) {
    for (const auto& record : TimeBans) {
        if (!IsTimeBanOf(record, InRecord(strUser), strChatName, intExchange, intInstance)) continue;
        if (Guarded(Departure::TimeBansAreKept, intChatIndex, strUser)) break; // a new end
        PrepareSends(strUser, "%p", ChatSends.Item(AlreadyTimeBanned), "", "alreadytban", "msg1",
                     GetChatIndex(intChatIndex));
        return;
    }
    BanUser(strUser, BanKind::TimeBan, intChatIndex, std::to_string(intTime));
}

void TillerSock::CheckTimeBans() {
    auto records = std::exchange(TimeBans, {});
    for (const auto& record : records) {
        auto tick = TickTimeBan(record);
        if (!tick.over) {
            TimeBans.Add(tick.record);
            continue;
        }
        const auto slot = LiftingRoom(record, tick);
        if (!slot) {
            TimeBans.Add(WithTicksLeft(record, 0));
            continue;
        }
        TellTimeBan(TimeBanStep::Over, record);
        const auto strUser = OutOfRecord(tick.user);
        const CauseBreak apart(telling);
        const CauseScope over(telling, {.kind = CauseKind::Timer, .room = *slot, .who = strUser});
        // A room that is gone gives position 0, and the line goes to all rooms.
        PrepareSends(strUser, "%p", ChatSends.Item(TimeBanOver), tick.minutes, "untbanned", "msg1",
                     GetChatIndex(*slot));
        UnbanUser(strUser, BanKind::UnbanKick, *slot);
    }
    if (auto timer = timers.TimeBanTimer(); timer && TimeBans.Count() == 0) timer->SetEnabled(false);
}

/// The slot in which a time ban that is over is lifted: the one that was noted, or with the guard that of its
/// own room. Nothing while it has to wait for one.
std::optional<std::int16_t> TillerSock::LiftingRoom(const std::string& strRecord, const TimeBanTick& tick) {
    const auto ban = ReadTimeBan(strRecord);
    const auto mayLift = [&](const std::shared_ptr<Chats>& room) {
        return room && !room->IsRated(1) && !room->Cookie.empty() && SameName(room->ChatName, ban.room) &&
               room->Exchange == ban.exchange && room->Instance == ban.instance;
    };
    if (mayLift(Room(tick.intChatIndex))) return tick.intChatIndex;
    const bool kept = ban.overdue ? Departs(Departure::TimeBansAreKept) // it was asked once
                                  : Guarded(Departure::TimeBansAreKept, tick.intChatIndex, tick.user);
    if (!kept) return tick.intChatIndex;
    for (const auto& room : Chat)
        if (mayLift(room)) return room->ChatIndex;
    return std::nullopt;
}

void TillerSock::StartTimeBan(const Chats& room, const std::string& strUser, const std::string& strMinutes) {
    if (Departs(Departure::TimeBansAreKept)) ForgetTimeBan(room, strUser); // what ran has a new end now
    TimeBans.Add(NewTimeBan(InRecord(strUser), room.ChatName, room.Exchange, room.Instance, room.ChatIndex,
                            strMinutes));
    TellTimeBan(TimeBanStep::Set, TimeBans.Item(static_cast<std::ptrdiff_t>(TimeBans.Count())));
    if (auto timer = timers.TimeBanTimer()) timer->SetEnabled(true);
}

std::ptrdiff_t TillerSock::PositionOfTimeBan(const Chats& room, const std::string& strUser) const {
    std::ptrdiff_t position = 0;
    for (const auto& record : TimeBans) {
        ++position;
        if (IsTimeBanOf(record, InRecord(strUser), room.ChatName, room.Exchange, room.Instance))
            return position;
    }
    return 0;
}

void TillerSock::ForgetTimeBan(const Chats& room, const std::string& strUser) {
    const auto position = PositionOfTimeBan(room, strUser);
    if (position == 0) return;
    const std::string record = TimeBans.Item(position);
    TimeBans.Remove(position);
    TellTimeBan(TimeBanStep::Forgotten, record);
}

void TillerSock::EndTimeBans() {
    for (const auto& record : std::exchange(TimeBans, {})) TimeBans.Add(WithTicksLeft(record, 1));
}

void TillerSock::ResumeTimeBan(const std::string& strRecord) {
    TimeBans.Add(strRecord);
    if (auto timer = timers.TimeBanTimer()) timer->SetEnabled(true);
}

void TillerSock::ClearTimeBans() {
    for (const auto& record : std::exchange(TimeBans, {})) TellTimeBan(TimeBanStep::Forgotten, record);
}

void TillerSock::TellTimeBan(TimeBanStep step, const std::string& strRecord) {
    if (telling.news) telling.news->TimeBanTold(step, strRecord);
}

} // namespace halyard
