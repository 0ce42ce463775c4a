#include "practice/service/ChatNavigation.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/service/RoomTraffic.h"

#include <utility>

namespace halyard {

namespace {

constexpr int wordTooManyRooms = 0x0012;
constexpr int wordInvalidName = 0x0033;
constexpr std::size_t longestName = 100;
constexpr int lastInstance = 0xFFFF;

std::string ExchangeTlv(const World& world, int exchange) {
    auto tlvs = WordTlv(0x00D1, world.options.maxMessageLength) + WordTlv(0x00D2, world.options.maxPeople) +
                Tlv(0x00D3, "Exchange " + std::to_string(exchange)) + Tlv(0x00D5, ByteToStr(2)) +
                Tlv(0x00D6, "us-ascii") + Tlv(0x00D7, "en");
    return Tlv(0x0003, WordToStr(exchange) + WordToStr(6) + tlvs);
}

void Answer(ClientConnection& connection, const Snac& snac, const std::string& tlvs) {
    connection.SendSnac(0x000D, 0x0009, snac.id, tlvs);
}

bool Refuse(ClientConnection& connection, const Snac& snac, int word) {
    connection.SendSnac(0x000D, 0x0001, snac.id, ErrorBody(codeDenied, word));
    return true;
}

bool RefuseBare(ClientConnection& connection, const Snac& snac, int word) {
    connection.SendSnac(0x000D, 0x0001, snac.id, WordToStr(word));
    return true;
}

bool Create(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    auto exchange = reader.Word();
    reader.Name(); // "create"
    auto instance = reader.Word();
    reader.Byte(); // detail level
    reader.Word(); // count of the TLVs, which fill the rest
    auto tlvs = ReadTlvs(reader.Rest());
    if (!reader.Ok() || !tlvs) return false;
    if (auto asked = std::exchange(world.refusals.creation, 0)) return Refuse(connection, snac, asked);
    auto name = FindTlv(*tlvs, 0x00D3);
    if (!name || NormalizeName(*name).empty() || name->size() > longestName)
        return Refuse(connection, snac, wordInvalidName);
    if (instance == lastInstance) instance = 0;
    if (world.options.Has(Departure::BareJoinRefusals)) {
        constexpr int publicExchange = 5; // whose rooms the service makes itself
        Room asked;
        asked.exchange = exchange;
        asked.instance = instance;
        asked.name = *name;
        const bool known = world.rooms.FindCookie(asked.Cookie());
        if (exchange != publicExchange && exchange != publicExchange - 1)
            return RefuseBare(connection, snac, 0x0008);
        if (exchange == publicExchange && !known) return RefuseBare(connection, snac, 0x0014);
    }
    auto room = world.rooms.FindOrCreate(exchange, instance, *name, world.options.maxPeople);
    if (!room) {
        world.Note(*name, connection.name,
                   "is refused a new room: full, with " + std::to_string(world.options.maxRooms) + " rooms");
        return Refuse(connection, snac, wordTooManyRooms);
    }
    if (room->owner.empty()) {
        room->owner = connection.name;
        world.Note(room->name, connection.name, "creates the room");
    }
    Answer(connection, snac, Tlv(0x0004, RoomBlock(world, *room)));
    return true;
}

bool Describe(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    reader.Word(); // the exchange stands in the cookie as well
    auto room = world.rooms.FindCookie(reader.Name());
    if (!reader.Ok()) return false;
    if (!room) return Refuse(connection, snac, wordInvalidName);
    Answer(connection, snac, Tlv(0x0004, RoomBlock(world, *room)));
    return true;
}

} // namespace

bool HandleNavigation(World& world, ClientConnection& connection, const Snac& snac) {
    switch (snac.subtype) {
    case 0x0002:
        Answer(connection, snac, Tlv(0x0002, ByteToStr(10)) + ExchangeTlv(world, 4) + ExchangeTlv(world, 5));
        return true;
    case 0x0003: {
        auto exchange = Reader(snac.body).Word();
        Answer(connection, snac, ExchangeTlv(world, exchange));
        return true;
    }
    case 0x0004: return Describe(world, connection, snac);
    case 0x0008: return Create(world, connection, snac);
    default: return true;
    }
}

} // namespace halyard
