#include "bridge/watch/alarms/SilenceAlarms.h"

#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/RoomAlarms.h"
#include "platform/Platform.h"

namespace halyard {

namespace {

/// The bot and two who could talk.
constexpr int FewestPeople = 3;

} // namespace

void SilenceAlarms::Look() {
    const auto now = platform.Milliseconds();
    for (auto at = quiet.begin(); at != quiet.end();) {
        const auto* room = truth.Room(at->first);
        if (room && room->standing.stage == Stage::On && rooms.NameOf(at->first) == at->second.room) {
            ++at;
            continue;
        }
        book.Withdraw(AlarmKind::Silent, at->second.room); // that the room is lost has its own alarm
        at = quiet.erase(at);
    }
    for (const auto& [slot, room] : truth.Rooms())
        if (room.standing.stage == Stage::On) LookAt(slot, room, now);
}

void SilenceAlarms::LookAt(std::int16_t slot, const RoomTruth& room, std::int64_t now) {
    auto& here = quiet[slot];
    if (here.room.empty()) here = {now, rooms.NameOf(slot)};
    const bool heard = !room.heard.empty() && room.heard.back() > here.since;
    if (heard) here.since = room.heard.back();
    if (room.people < FewestPeople) here.since = now;
    const auto minutes = book.Terms().Of(AlarmKind::Silent).minutes;
    if (now - here.since < std::int64_t{minutes} * 60'000)
        return book.End(AlarmKind::Silent, here.room,
                        heard ? "A line was heard." : "Too few people are there to talk.");
    book.Raise(AlarmKind::Silent, here.room,
               "Nobody has said a line for " + std::to_string(minutes) + " minutes, and " +
                   std::to_string(room.people) + " are there.");
}

} // namespace halyard
