#include "practice/service/Rooms.h"

#include "base/Text.h"

#include <algorithm>

namespace halyard {

std::string Room::Cookie() const {
    return std::to_string(exchange) + "-" + std::to_string(instance) + "-" + name;
}

const RoomMember* Room::Find(std::string_view who) const {
    auto found = std::find_if(members.begin(), members.end(),
                              [&](const auto& member) { return SameName(member.name, who); });
    return found == members.end() ? nullptr : &*found;
}

bool Room::IsOwner(std::string_view who) const { return !owner.empty() && SameName(owner, who); }

bool Room::IsBanned(std::string_view who) const { return bans.contains(NormalizeName(who)); }

Room* Rooms::FindOrCreate(int exchange, int instance, std::string_view name, int maxPeople) {
    auto room = std::make_unique<Room>();
    room->exchange = exchange;
    room->instance = instance;
    room->name = name;
    room->maxPeople = maxPeople;
    auto key = NormalizeName(room->Cookie());
    if (auto found = rooms.find(key); found != rooms.end()) return found->second.get();
    if (rooms.size() >= limit && !MakePlace()) return nullptr;
    return rooms.emplace(key, std::move(room)).first->second.get();
}

Room* Rooms::FindCookie(std::string_view cookie) const {
    auto found = rooms.find(NormalizeName(cookie));
    return found == rooms.end() ? nullptr : found->second.get();
}

Room* Rooms::FindName(std::string_view name) const {
    for (const auto& [key, room] : rooms)
        if (SameName(room->name, name)) return room.get();
    return nullptr;
}

bool Rooms::MakePlace() {
    for (auto at = rooms.begin(); at != rooms.end(); ++at) {
        if (at->second->keep || !at->second->members.empty()) continue;
        rooms.erase(at);
        return true;
    }
    return false;
}

} // namespace halyard
