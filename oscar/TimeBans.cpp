// Bans that lift themselves. The records live in memory only.

#include "oscar/TillerSock.h"
#include "rooms/TimeBan.h"

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
        if (!IsTimeBanOf(record, strUser, strChatName, intExchange, intInstance)) continue;
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
        TellTimeBan(TimeBanStep::Over, record);
        const CauseBreak apart(telling);
        const CauseScope over(telling,
                              {.kind = CauseKind::Timer, .room = tick.intChatIndex, .who = tick.user});
        // A room that is gone gives position 0, and the line goes to all rooms.
        PrepareSends(tick.user, "%p", ChatSends.Item(TimeBanOver), tick.minutes, "untbanned", "msg1",
                     GetChatIndex(tick.intChatIndex));
        UnbanUser(tick.user, BanKind::UnbanKick, tick.intChatIndex);
    }
    if (auto timer = timers.TimeBanTimer(); timer && TimeBans.Count() == 0) timer->SetEnabled(false);
}

void TillerSock::ClearTimeBans() {
    for (const auto& record : std::exchange(TimeBans, {})) TellTimeBan(TimeBanStep::Forgotten, record);
}

void TillerSock::TellTimeBan(TimeBanStep step, const std::string& strRecord) {
    if (telling.news) telling.news->TimeBanTold(step, strRecord);
}

} // namespace halyard
