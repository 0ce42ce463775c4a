// The rooms: on the way in, inside, and those that the bot isn't in.

#include "base/Collection.h"
#include "base/Text.h"
#include "bridge/watch/Truth.h"
#include "platform/Platform.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

template <typename Entry>
bool IsRoom(const Entry& entry, const std::string& name, std::int16_t exchange) {
    return entry.exchange == exchange && SameName(entry.name, name);
}

/// An entry "name:exchange:instance" is read from its end: a name may hold ":".
std::optional<AwaitedRoom> ReadAwaited(const std::string& entry, std::int64_t now) {
    const auto second = entry.rfind(':');
    if (second == std::string::npos || second == 0) return std::nullopt;
    const auto first = entry.rfind(':', second - 1);
    if (first == std::string::npos) return std::nullopt;
    const auto exchange = ToInt16(entry.substr(first + 1, second - first - 1));
    if (!exchange) return std::nullopt;
    return AwaitedRoom{entry.substr(0, first), *exchange, now};
}

} // namespace

AbsentRoom& Truth::Miss(const std::string& room, std::int16_t exchange) {
    auto found = std::find_if(absent.begin(), absent.end(),
                              [&](const auto& each) { return IsRoom(each, room, exchange); });
    if (found == absent.end()) {
        if (absent.size() >= MostAbsent) absent.erase(absent.begin());
        absent.push_back({room, exchange, {}, 0});
    } else {
        std::rotate(found, found + 1, absent.end());
    }
    return absent.back();
}

void Truth::NotMissed(const std::string& room, std::int16_t exchange) {
    absent.erase(std::remove_if(absent.begin(), absent.end(),
                                [&](const auto& each) { return IsRoom(each, room, exchange); }),
                 absent.end());
}

/// The desk knows one request: what ends without a room is the one that was asked for last.
void Truth::LoseRequest(const std::string& words) {
    for (auto room = absent.rbegin(); room != absent.rend(); ++room) {
        if (room->standing.stage != Stage::Underway) continue;
        return Stand(room->standing, Stage::Lost, words);
    }
}

void Truth::RoomAsked(const std::string& room, std::int16_t exchange) {
    auto& asked = Miss(room, exchange);
    asked.code = 0;
    Stand(asked.standing, Stage::Underway, "Asked for", ConnectTime);
    if (navigation.stage != Stage::On && navigation.stage != Stage::Underway)
        Stand(navigation, Stage::Underway, "Asked for", ConnectTime);
    Changed();
}

void Truth::RoomRefused(int code, const std::string&, const std::string& text) {
    for (auto room = absent.rbegin(); room != absent.rend(); ++room) {
        if (room->standing.stage != Stage::Underway) continue;
        room->code = code;
        Stand(room->standing, Stage::Refused, text);
        break;
    }
    Changed();
}

void Truth::RoomOpened(std::int16_t slot, const std::string& room, std::int16_t exchange) {
    NotMissed(room, exchange);
    rooms.erase(slot);
    auto& opened = rooms[slot];
    opened.slot = slot;
    opened.name = room;
    opened.exchange = exchange;
    Stand(opened.standing, Stage::Underway, "Opening", ConnectTime);
    opened.standing.lastHeard = Now();
    Wire();
    Changed();
}

void Truth::RoomEntered(std::int16_t slot, const std::string& room, std::int16_t exchange) {
    NotMissed(room, exchange);
    if (auto* entered = Find(slot)) {
        entered->name = room;
        entered->exchange = exchange;
        Stand(entered->standing, Stage::On, "In the room");
        entered->standing.lastHeard = Now();
    }
    Changed();
}

/// What still waited in it is told to be dropped before or after.
void Truth::RoomLeft(std::int16_t slot, const std::string& room, const std::string& reason) {
    RoomTruth gone;
    if (const auto found = rooms.find(slot); found != rooms.end()) {
        gone = std::move(found->second);
        rooms.erase(found);
    }
    const auto exchange = gone.exchange;
    left = std::move(gone);
    left.slot = slot;
    left.name = room;
    tags.erase(slot);
    Silence(slot);
    Wire();
    if (reason != "manual")
        Stand(Miss(room, exchange).standing, Stage::Lost, "Lost");
    else
        NotMissed(room, exchange);
    Changed();
}

void Truth::RoomsAwaited(const Collection<std::string>& entries) {
    std::vector<AwaitedRoom> now;
    for (const auto& entry : entries) {
        auto room = ReadAwaited(entry, Now());
        if (!room) continue;
        for (const auto& before : awaited)
            if (IsRoom(before, room->name, room->exchange)) room->since = before.since;
        now.push_back(std::move(*room));
    }
    awaited = std::move(now);
    Changed();
}

void Truth::OwnerTold(std::int16_t slot, const std::string& owner, bool own) {
    if (auto* room = Find(slot)) {
        room->owner = own;
        room->ownerName = owner;
    }
    Changed();
}

void Truth::PersonCame(std::int16_t slot, const std::string& who) {
    auto* room = Find(slot);
    if (!room) return;
    if (auto key = NormalizeName(who); !key.empty()) room->names.insert(std::move(key));
    room->people = static_cast<int>(room->names.size());
    Changed();
}

void Truth::PersonWent(std::int16_t slot, const std::string& who) {
    auto* room = Find(slot);
    if (!room) return;
    room->names.erase(NormalizeName(who));
    room->people = static_cast<int>(room->names.size());
    Changed();
}

} // namespace halyard
