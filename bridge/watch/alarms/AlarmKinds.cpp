#include "bridge/watch/alarms/AlarmKinds.h"

#include <array>

namespace halyard {

namespace {

constexpr std::array<AlarmText, AlarmKindCount> alarmTexts{{
    {},
    {"off-line", "Off line", "Not on line for so many minutes."},
    {"given-up", "Given up", "A sign-on or a re-connection has ended without success."},
    {"needs-you", "Needs you",
     "The password is refused or the name suspended; nothing tries again by itself."},
    {"room-lost", "Room lost", "A room was lost, refused or closed, and isn't entered again."},
    {"silent", "Silent", "Nobody has said a line for so many minutes while people are there."},
    {"rated", "Rated", "A room was limited more than so many times in an hour."},
    {"lines-dropped", "Lines dropped", "So many lines of a room were never said, in an hour."},
    {"bans-refused", "Bans refused", "The bot doesn't own the room, or the network refuses."},
    {"not-written", "Not written", "A file or the ledger couldn't be written."},
    {"raid", "Raid", "More than so many newcomers were acted on; protection stays on."},
    {"fuse", "Entry paused", "An entry acted on many who aren't new."},
    {"hopeless-room", "Room given up", "A room is asked for no more: its refusal is for good."},
    {"time-bans", "Time bans", "Time bans can't be kept."},
}};

} // namespace

AlarmText TextOf(AlarmKind kind) {
    const auto index = static_cast<std::size_t>(kind);
    return index < AlarmKindCount ? alarmTexts[index] : AlarmText{};
}

AlarmKind AlarmOfGuard(Departure guard) {
    switch (guard) {
    case Departure::RoomsAreAskedForAgain: return AlarmKind::HopelessRoom;
    case Departure::RunawayFuse: return AlarmKind::Fuse;
    case Departure::TimeBansAreKept: return AlarmKind::TimeBans;
    default: return AlarmKind::OffLine;
    }
}

} // namespace halyard
