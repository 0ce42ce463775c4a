// What waits in the rooms, what holds it up, and what never went out.

#include "bridge/watch/Truth.h"
#include "platform/Platform.h"
#include "rooms/BanRequest.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr std::int64_t UnrateTick = 30000; // ms

std::size_t At(Pause pause) { return static_cast<std::size_t>(pause); }

/// Numbers rise along a queue.
std::deque<WaitingLine>::iterator FindLine(std::deque<WaitingLine>& lines, std::int64_t number) {
    const auto found = std::lower_bound(
        lines.begin(), lines.end(), number,
        [](const WaitingLine& line, std::int64_t wanted) { return line.send.Number < wanted; });
    return found != lines.end() && found->send.Number == number ? found : lines.end();
}

std::deque<WaitingBan>::iterator FindBan(std::deque<WaitingBan>& bans, std::int32_t id) {
    return std::find_if(bans.begin(), bans.end(), [id](const auto& ban) { return ban.id == id; });
}

} // namespace

std::int64_t RoomTruth::PauseEnd(Pause pause, std::int64_t now) const {
    const auto end = pauseEnd[At(pause)];
    if (pause != Pause::Unrate || end == 0 || end >= now) return end;
    return end + (now - end + UnrateTick - 1) / UnrateTick * UnrateTick;
}

void Truth::PauseBegan(std::int16_t slot, Pause pause, int milliseconds) {
    auto* room = Find(slot);
    if (!room) return;
    room->pauseEnd[At(pause)] = Now() + milliseconds;
    Changed();
}

void Truth::PauseEnded(std::int16_t slot, Pause pause) {
    auto* room = Find(slot);
    if (!room) return;
    room->pauseEnd[At(pause)] = 0;
    Changed();
}

/// The time is told in whole half minutes, of which the first may have been running for some time.
void Truth::RateLevel(std::int16_t slot, int classId, bool rated, int milliseconds) {
    auto* room = Find(slot);
    if (!room || classId < 1 || classId > 5) return;
    const auto at = static_cast<std::size_t>(classId);
    room->rated[at] = rated;
    const auto tick = room->PauseEnd(Pause::Unrate, Now());
    const auto first = tick > Now() ? tick : Now() + UnrateTick;
    room->freeAt[at] = !rated ? 0 : milliseconds < 0 ? -1 : first + milliseconds - UnrateTick;
    Changed();
}

void Truth::LineQueued(std::int16_t slot, const Msgs& line) {
    auto* room = Find(slot);
    if (!room) return;
    room->lines.push_back({line, origins.Now(telling), Now()});
    Changed();
}

void Truth::LineSaid(std::int16_t slot, const Msgs&, const std::string&,
                     const std::vector<std::int64_t>& numbers) {
    auto* room = Find(slot);
    if (!room || numbers.empty()) return;
    for (const auto number : numbers)
        if (const auto line = FindLine(room->lines, number); line != room->lines.end())
            room->lines.erase(line);
    Changed();
}

void Truth::LineDropped(std::int16_t slot, const Msgs& line, LineDrop why) {
    DroppedThing thing;
    thing.what = line.TheType;
    thing.whom = line.TheReplacement;
    thing.line = why;
    auto* room = Holder(slot);
    const auto waiting = room ? FindLine(room->lines, line.Number) : std::deque<WaitingLine>::iterator();
    if (room && waiting != room->lines.end()) {
        thing.origin = waiting->origin;
        room->lines.erase(waiting);
    } else {
        thing.origin = origins.Now(telling);
    }
    Drop(slot, std::move(thing));
}

/// It counts as waiting until it goes out, which may be at once.
void Truth::BanWanted(std::int16_t slot, std::int32_t id, BanKind kind, const std::string& who,
                      const std::string& other) {
    const auto origin = origins.Now(telling);
    origins.Keep(id, origin);
    if (auto* room = Find(slot)) room->bans.push_back({id, kind, who, other, origin, Now()});
}

void Truth::BanAsked(std::int16_t slot, std::int32_t id, BanRequestKind, const std::string&) {
    auto* room = Find(slot);
    if (!room) return;
    if (!room->bans.empty() && room->bans.back().id == id)
        room->bans.pop_back(); // it didn't wait
    else if (const auto ban = FindBan(room->bans, id); ban != room->bans.end())
        room->bans.erase(ban);
    Changed();
}

void Truth::BanDropped(std::int16_t slot, std::int32_t id, BanKind kind, const std::string& who,
                       const std::string&, DropReason why) {
    DroppedThing thing;
    thing.ban = true;
    thing.what = WordOf(kind);
    thing.whom = who;
    thing.reason = why;
    auto* room = Holder(slot);
    const auto waiting = room ? FindBan(room->bans, id) : std::deque<WaitingBan>::iterator();
    if (room && waiting != room->bans.end()) {
        thing.origin = waiting->origin;
        room->bans.erase(waiting);
    } else {
        thing.origin = origins.Now(telling);
    }
    Drop(slot, std::move(thing));
}

/// The room of this slot, or the one that was left there just now.
RoomTruth* Truth::Holder(std::int16_t slot) {
    if (auto* room = Find(slot)) return room;
    return left.slot == slot && slot != 0 ? &left : nullptr;
}

void Truth::Drop(std::int16_t slot, DroppedThing thing) {
    thing.at = Now();
    if (const auto* room = Holder(slot)) thing.room = room->name;
    dropped.push_back(std::move(thing));
    if (dropped.size() > MostDropped) dropped.pop_front();
    ++droppedCount;
    Changed();
}

} // namespace halyard
