#include "practice/service/RoomTraffic.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int wordEjected = 0x004A;
constexpr int wordAlreadyIn = 0x002E;
constexpr int wordFull = 0x0018;

void SendToOthers(const Room& room, const ClientConnection* except, int subtype, const std::string& body) {
    for (const auto& member : room.members)
        if (member.connection && member.connection != except)
            member.connection->SendSnac(0x000E, subtype, 0, body);
}

/// Everyone in the room, in frames that a client's buffer holds.
void SendEveryone(World& world, const Room& room, ClientConnection& connection) {
    std::string people;
    for (const auto& member : room.members) {
        people += world.InfoOf(member.name);
        if (people.size() < 4096) continue;
        connection.SendSnac(0x000E, 0x0003, 0, people);
        people.clear();
    }
    if (!people.empty()) connection.SendSnac(0x000E, 0x0003, 0, people);
}

} // namespace

int RefusalOf(const Room& room, const std::string& name) {
    if (room.IsBanned(name)) return wordEjected;
    if (room.Find(name)) return wordAlreadyIn;
    return room.IsFull() ? wordFull : 0;
}

void NoteRefusal(World& world, const Room& room, const std::string& name, int word) {
    if (word == wordEjected) world.Note(room.name, name, "is not let in: banned");
    if (word != wordFull) return;
    world.Note(room.name, name,
               "is not let in: full, with " + std::to_string(room.members.size()) + " people");
}

void ReplaceMember(World& world, Room& room, const std::string& name) {
    const auto* member = room.Find(name);
    if (member && member->connection) world.Dismiss(*member->connection);
}

std::string RoomBlock(const World& world, const Room& room) {
    return WordToStr(room.exchange) + ShortString(room.Cookie()) + WordToStr(room.instance) + ByteToStr(2) +
           WordToStr(5) + Tlv(0x006A, room.name) + WordTlv(0x00D1, world.options.maxMessageLength) +
           WordTlv(0x00D2, room.maxPeople) + Tlv(0x00D3, room.name) +
           WordTlv(0x00DA, world.options.maxVisibleLength);
}

void ConnectionReady(World& world, ClientConnection& connection) {
    auto room = world.rooms.FindCookie(connection.roomCookie);
    if (!room && world.options.Has(Departure::NavigationAnswers)) return; // kept, and in no room
    const auto word = room ? RefusalOf(*room, connection.name) : 0;
    if (room) NoteRefusal(world, *room, connection.name, word);
    if (!room || word != 0) return world.Dismiss(connection);
    connection.room = room;
    EnterRoom(world, *room, connection.name, &connection);
}

void EnterRoom(World& world, Room& room, const std::string& name, ClientConnection* connection) {
    room.members.push_back({name, connection});
    world.Note(room.name, name, "enters");
    if (connection) {
        connection->SendSnac(0x000E, 0x0002, 0, RoomBlock(world, room));
        SendEveryone(world, room, *connection);
        if (room.IsOwner(name)) connection->SendSnac(0x000E, 0x0030, 0, room.owner);
    }
    SendToOthers(room, connection, 0x0003, world.InfoOf(name));
    if (connection && world.onClientEntered) world.onClientEntered(room);
}

void LeaveRoom(World& world, Room& room, const std::string& name) {
    auto member = room.Find(name);
    if (!member) return;
    auto gone = *member; // a copy: the name may be the member's own
    if (gone.connection) gone.connection->room = nullptr;
    room.members.erase(room.members.begin() + (member - room.members.data()));
    world.Note(room.name, gone.name, "leaves");
    SendToOthers(room, nullptr, 0x0004, world.InfoOf(gone.name));
}

void SayInRoom(World& world, Room& room, const std::string& name, std::string_view cookie,
               std::string_view block, ClientConnection* reflectTo, std::uint32_t id) {
    auto message = std::string(cookie) + WordToStr(3) + Tlv(0x0003, world.InfoOf(name)) + Tlv(0x0001, "") +
                   Tlv(0x0005, block);
    auto self = room.Find(name);
    SendToOthers(room, self ? self->connection : nullptr, 0x0006, message);
    if (reflectTo) reflectTo->SendSnac(0x000E, 0x0006, id, message);
}

std::string TextBlock(const World& world, std::string_view text) {
    const bool plain =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
    if (world.options.Has(Departure::WholeMessageBlocks)) {
        std::string wide; // Windows-1252 and UTF-16 have the same numbers, but for 128 to 159
        for (const char c : text) wide += ByteToStr(0) + c;
        return plain ? Tlv(0x0001, text) + Tlv(0x0002, "us-ascii") + Tlv(0x0003, "en")
                     : Tlv(0x0001, wide) + Tlv(0x0002, "unicode-2-0") + Tlv(0x0003, "en");
    }
    return Tlv(0x0002, "us-ascii") + Tlv(0x0003, "en") + Tlv(0x0001, text);
}

void BanFromRoom(World& world, Room& room, const std::string& by, const std::string& target) {
    world.Note(room.name, by, "bans " + target);
    room.bans[NormalizeName(target)] = target;
    auto member = room.Find(target);
    if (!member) return;
    auto connection = member->connection;
    LeaveRoom(world, room, target);
    if (connection) world.Dismiss(*connection);
}

void UnbanFromRoom(World& world, Room& room, const std::string& by, const std::string& target) {
    world.Note(room.name, by, "unbans " + target);
    room.bans.erase(NormalizeName(target));
}

int BanRefusal(const Room& room, const std::string& by, const std::string& target) {
    if (!room.IsOwner(by)) return 0x0048;
    return room.IsOwner(target) ? 0x0049 : 0;
}

void CloseRoom(World& world, Room& room, const std::string& by) {
    world.Note(room.name, by, "closes the room");
    for (auto members = room.members; const auto& member : members) {
        LeaveRoom(world, room, member.name);
        if (member.connection) world.Dismiss(*member.connection);
    }
}

} // namespace halyard
