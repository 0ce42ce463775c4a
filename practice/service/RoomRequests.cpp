// What a client asks of the room it is in: say, ban, unban, close.

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/service/RoomTraffic.h"

namespace halyard {

namespace {

/// What the journal tells of a line, by its message block.
std::string SpokenLine(const TlvList& block, const std::string& text) {
    auto encoding = FindTlv(block, 0x0002);
    return StripHTML(encoding && *encoding == "unicode-2-0" ? FromUtf16(text) : text);
}

bool HandleSay(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    auto cookie = reader.Bytes(8);
    reader.Word(); // the channel: lines go out on 3, whatever came
    auto tlvs = ReadTlvs(reader.Rest());
    if (!reader.Ok() || !tlvs) return false;
    auto block = FindTlv(*tlvs, 0x0005);
    auto inner = block ? ReadTlvs(*block) : std::nullopt;
    auto text = inner ? FindTlv(*inner, 0x0001) : nullptr;
    if (!text) return false;
    auto& room = *connection.room;
    if (text->size() > static_cast<std::size_t>(world.options.maxMessageLength)) {
        world.Note(room.name, connection.name, "says more than the room takes, which is dropped");
        return true;
    }
    world.Note(room.name, connection.name, "says " + SpokenLine(*inner, *text));
    auto reflect = FindTlv(*tlvs, 0x0006) ? &connection : nullptr;
    SayInRoom(world, room, connection.name, cookie, *block, reflect, snac.id);
    return true;
}

void Answer(World& world, ClientConnection& connection, const Snac& snac, int word) {
    if (word != 0)
        world.Note(connection.room->name, connection.name, "is refused that, 00" + StrToHex(ByteToStr(word)));
    connection.SendSnac(0x000E, 0x0001, snac.id, word == 0 ? WordToStr(0) : ErrorBody(codeDenied, word));
}

/// For a service that doesn't know the family of bans: a bare word.
bool RefuseAsUnknown(ClientConnection& connection, const Snac& snac) {
    return connection.SendSnac(0x000E, 0x0001, snac.id, WordToStr(1)), true;
}

bool HandleBan(World& world, ClientConnection& connection, const Snac& snac) {
    auto tlvs = ReadTlvs(snac.body);
    auto target = tlvs ? FindTlv(*tlvs, 0x0001) : nullptr;
    if (!target || target->size() > 255) return false;
    auto room = connection.room;
    auto word = BanRefusal(*room, connection.name, *target);
    Answer(world, connection, snac, word);
    if (word != 0) return true;
    if (snac.subtype == 0x0024)
        BanFromRoom(world, *room, connection.name, *target);
    else
        UnbanFromRoom(world, *room, connection.name, *target);
    return true;
}

bool HandleClose(World& world, ClientConnection& connection, const Snac& snac) {
    auto room = connection.room;
    auto word = BanRefusal(*room, connection.name, "");
    Answer(world, connection, snac, word);
    if (word == 0) CloseRoom(world, *room, connection.name);
    return true;
}

} // namespace

bool HandleRoom(World& world, ClientConnection& connection, const Snac& snac) {
    if (!connection.room) return true; // before 0001 0002 nothing is said
    switch (snac.subtype) {
    case 0x0005: return HandleSay(world, connection, snac);
    default: break;
    }
    const bool bans = snac.subtype == 0x0023 || snac.subtype == 0x0024 || snac.subtype == 0x0025;
    if (bans && world.options.Has(Departure::UnenforcedBans)) return RefuseAsUnknown(connection, snac);
    switch (snac.subtype) {
    case 0x0023: return HandleClose(world, connection, snac);
    case 0x0024:
    case 0x0025: return HandleBan(world, connection, snac);
    default: return true;
    }
}

} // namespace halyard
