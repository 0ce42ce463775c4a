#include "soak/watch/LiftWatch.h"

#include "base/Text.h"
#include "soak/Time.h"

#include <algorithm>

namespace halyard {

namespace {

enum Field { User, Room, Exchange, Instance, Slot, Minutes, KeptFields };

LiftWatch::TimeBan Started(const std::string& record, std::int64_t now) {
    auto fields = Split(record, ":");
    fields.resize(KeptFields);
    LiftWatch::TimeBan ban;
    for (const auto& field : fields) ban.record += field + ":";
    ban.user = NormalizeName(fields[User]);
    ban.room = NormalizeName(fields[Room]);
    ban.slot = ToInt16(fields[Slot]).value_or(0);
    // A minute takes 61 ticks, and the end comes one later.
    ban.due = now + (ToInt16(fields[Minutes]).value_or(0) * 61 + 1) * second;
    return ban;
}

} // namespace

std::string LiftWatch::Check(const Collection<std::string>& records, std::int64_t now,
                             const std::function<bool(const TimeBan&)>& canLift) {
    const auto requests = std::exchange(asked, {});
    for (auto position = running.size() + 1; position <= records.Count(); ++position) {
        running.push_back(Started(records.Item(static_cast<std::ptrdiff_t>(position)), now));
        nextDue = running.size() == 1 ? running.back().due : std::min(nextDue, running.back().due);
    }
    if (!Due(records.Count(), now)) return {};
    return EndMissing(records, now, requests, canLift);
}

/// Of records that are alike the oldest ends first, so they are matched from the youngest on.
std::string LiftWatch::EndMissing(const Collection<std::string>& records, std::int64_t now,
                                  const Requests& requests,
                                  const std::function<bool(const TimeBan&)>& canLift) {
    std::string wrong;
    auto position = static_cast<std::ptrdiff_t>(records.Count());
    for (auto index = running.size(); index-- > 0;) {
        const auto& ban = running[index];
        if (position > 0 && records.Item(position).starts_with(ban.record)) {
            --position;
            if (now > ban.due) wrong = "a time ban has outlived its time: " + ban.record;
            continue;
        }
        ++ended;
        // The clock of all time bans may have been running already, and its first tick comes early then.
        if (now < ban.due - second) wrong = "a time ban has ended early: " + ban.record;
        if (!canLift(ban))
            ++stranded;
        else if (!requests.contains({ban.room, ban.user}))
            wrong = "a time ban has ended, and nobody was let in: " + ban.record;
        running.erase(running.begin() + static_cast<std::ptrdiff_t>(index));
    }
    auto soonest = std::min_element(running.begin(), running.end(),
                                    [](const auto& one, const auto& other) { return one.due < other.due; });
    if (soonest != running.end()) nextDue = soonest->due;
    return wrong;
}

} // namespace halyard
