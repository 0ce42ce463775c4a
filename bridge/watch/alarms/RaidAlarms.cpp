#include "bridge/watch/alarms/RaidAlarms.h"

#include "base/Text.h"
#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/AlarmOrders.h"
#include "bridge/watch/alarms/RoomAlarms.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

bool IsByItself(BanKind kind) {
    switch (kind) {
    case BanKind::Autoban:
    case BanKind::Autoword:
    case BanKind::AutoGhost:
    case BanKind::Char:
    case BanKind::ICQ: return true;
    default: return false;
    }
}

} // namespace

void RaidAlarms::BanWanted(std::int16_t room, std::int32_t /*id*/, BanKind kind, const std::string& name,
                           const std::string& other) {
    if (!IsByItself(kind) || suspects.size() >= MostAsked) return;
    suspects[NormalizeName(name)] = {rooms.NameOf(room), platform.Milliseconds(), other};
}

void RaidAlarms::SignedOff() {
    suspects.clear();
    for (const auto& [room, raid] : raids)
        if (IsOrderedByHand(telling))
            book.Withdraw(AlarmKind::Raid, room);
        else
            book.End(AlarmKind::Raid, room, "The bot is signed off.");
    raids.clear();
}

void RaidAlarms::Look() {
    for (auto at = raids.begin(); at != raids.end();) {
        Judge(at->first, at->second);
        at = at->second.acted.empty() ? raids.erase(at) : std::next(at);
    }
    if (suspects.empty()) return;
    Names names;
    for (const auto& [name, suspect] : suspects) names.push_back(name);
    const auto asked = std::exchange(suspects, {});
    if (!newcomersOf) return Count(asked, names);
    newcomersOf(names, [this, asked, alive = std::weak_ptr(life)](const Names& unknown) {
        if (!alive.expired()) Count(asked, unknown);
    });
}

void RaidAlarms::Count(const Suspects& asked, const Names& unknown) {
    for (const auto& name : unknown) {
        const auto found = asked.find(name);
        if (found == asked.end()) continue;
        auto& raid = raids[found->second.room];
        raid.acted[name] = found->second.at;
        raid.last = found->second.entry;
    }
    for (auto& [room, raid] : raids) Judge(room, raid);
}

void RaidAlarms::Judge(const std::string& room, Raid& raid) {
    const auto& term = book.Terms().Of(AlarmKind::Raid);
    const auto from = platform.Milliseconds() - std::int64_t{term.minutes} * 60'000;
    std::erase_if(raid.acted, [from](const auto& person) { return person.second <= from; });
    const auto minutes = std::to_string(term.minutes) + " minutes";
    if (raid.acted.empty()) book.End(AlarmKind::Raid, room, "No newcomer was acted on for " + minutes + ".");
    if (raid.acted.size() <= static_cast<std::size_t>(term.limit)) return;
    book.Raise(AlarmKind::Raid, room,
               std::to_string(raid.acted.size()) + " newcomers were acted on in " + minutes +
                   (raid.last.empty() ? "" : ", the last by \"" + raid.last + "\"") +
                   "; protection stays on.");
}

} // namespace halyard
