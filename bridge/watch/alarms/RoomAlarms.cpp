#include "bridge/watch/alarms/RoomAlarms.h"

#include "base/Text.h"
#include "bridge/networks/Refusals.h"
#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/AlarmOrders.h"
#include "platform/Platform.h"

#include <algorithm>

namespace halyard {

namespace {

/// The code is a reason of the room's where it is one, else the word of a bare error answer.
std::string WhyNoRoom(int code) {
    const bool bare = !FindRefusal(RefusalKind::Room, code) && FindRefusal(RefusalKind::Error, code);
    return "It is refused. " + RefusalText(bare ? RefusalKind::Error : RefusalKind::Room, code);
}

} // namespace

std::string RoomAlarms::SubjectOf(const Key& key, const Wanted& room) {
    return room.name + (key.second == 4 ? "" : " (exchange " + std::to_string(key.second) + ")");
}

std::string RoomAlarms::NameOf(std::int16_t slot) const {
    for (const auto& [key, room] : rooms)
        if (slot != 0 && room.slot == slot) return SubjectOf(key, room);
    return {};
}

void RoomAlarms::Lose(Wanted& room, const char* why) {
    room.slot = 0;
    room.since = platform.Milliseconds();
    room.why = why;
}

void RoomAlarms::ForgetAll() {
    rooms.clear();
    book.Withdraw(AlarmKind::RoomLost);
}

/// A hand that signs on begins anew; the bot alone goes back.
void RoomAlarms::SignOnBegun(const std::string& /*name*/) {
    if (IsOrderedByHand(telling)) ForgetAll();
}

void RoomAlarms::SignedOn(const std::string& /*name*/) {
    for (auto& [key, room] : rooms) room.since = platform.Milliseconds();
}

void RoomAlarms::SignedOff() {
    if (IsOrderedByHand(telling)) ForgetAll();
}

void RoomAlarms::ConnectionsReset() {
    for (auto& [key, room] : rooms)
        if (room.slot != 0) Lose(room, "It was left with the main connection.");
}

/// What the operator asks for and doesn't get he sees; what the bot or an op asks for is to be had.
void RoomAlarms::RoomAsked(const std::string& name, std::int16_t exchange) {
    asked = {NormalizeName(name), exchange};
    if (IsOrderedByHand(telling) || rooms.contains(asked) || rooms.size() >= MostRooms) return;
    Lose(rooms[asked], "It doesn't open.");
    rooms[asked].name = name;
}

void RoomAlarms::RoomEntered(std::int16_t slot, const std::string& name, std::int16_t exchange) {
    const Key key{NormalizeName(name), exchange};
    if (!rooms.contains(key) && rooms.size() >= MostRooms) return;
    auto& room = rooms[key];
    const auto before = SubjectOf(key, room);
    room = {name, slot, platform.Milliseconds(), {}};
    closing.erase(slot);
    book.End(AlarmKind::RoomLost, before, "The bot is in it again.");
}

void RoomAlarms::RoomCloseAsked(std::int16_t slot) {
    if (IsOrdered(telling)) closing[slot] = platform.Milliseconds();
}

void RoomAlarms::RoomLeft(std::int16_t slot, const std::string& name, const std::string& /*reason*/) {
    // By its slot, since the exchange isn't told; a connection that never was a room has none here.
    const auto found = std::ranges::find_if(rooms, [&](const auto& entry) {
        return entry.second.slot == slot && SameName(entry.first.first, name);
    });
    const auto close = closing.extract(slot);
    const bool closed = !close.empty() && platform.Milliseconds() - close.mapped() < LongestClosing;
    const bool ordered = closed || IsOrdered(telling);
    if (found != rooms.end() && !ordered) return Lose(found->second, "The connection to it is lost.");
    if (!ordered) return;
    const auto gone = found != rooms.end() ? found : std::ranges::find_if(rooms, [&](const auto& entry) {
        return entry.second.slot == 0 && SameName(entry.first.first, name);
    });
    if (gone == rooms.end()) return;
    book.Withdraw(AlarmKind::RoomLost, SubjectOf(gone->first, gone->second));
    rooms.erase(gone);
}

void RoomAlarms::RoomRefused(int code, const std::string& /*family*/, const std::string& /*text*/) {
    const auto found = rooms.find(asked);
    if (found != rooms.end() && found->second.slot == 0) found->second.why = WhyNoRoom(code);
}

void RoomAlarms::Look(bool online) {
    if (!online) return;
    const auto longest = std::int64_t{book.Terms().Of(AlarmKind::RoomLost).minutes} * 60'000;
    for (const auto& [key, room] : rooms)
        if (room.slot == 0 && platform.Milliseconds() - room.since >= longest &&
            !book.Fires(AlarmKind::HopelessRoom, SubjectOf(key, room))) // which says it already
            book.Raise(AlarmKind::RoomLost, SubjectOf(key, room), room.why);
}

} // namespace halyard
