#include "practice/service/Services.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/service/RoomTraffic.h"

#include <utility>

namespace halyard {

namespace {

/// Error code "request denied"; what is denied stands in TLV 0008.
constexpr std::size_t mostKnown = 10000;
constexpr int wordInvalidRoom = 0x0033;

std::string FamiliesOf(Service service) {
    if (service == Service::Bos)
        return HexToStr("0001001300020003000400060008"
                        "0009000A000B");
    return WordToStr(1) + WordToStr(static_cast<int>(service));
}

void KeepVersions(ClientConnection& connection, const std::string& body) {
    for (Reader reader(body); reader.Rest().size() >= 4;) {
        auto family = reader.Word();
        auto version = reader.Word();
        if (family == 0x0001) connection.genericVersion = version;
    }
}

void ComeOnLine(World& world, ClientConnection& connection, const Ticket& ticket) {
    auto person = world.people.Find(ticket.name);
    auto old = person ? person->bos : nullptr;
    if (ticket.migration && old) {
        person->bos = nullptr;
        world.Forget(*old);
    } else if (!ticket.migration) {
        if (old) world.Note("", ticket.name, "signs on again, which ends the first connection");
        DismissOthers(world, ticket.name, &connection);
    }
    world.people.Enter(ticket.name, world.Now()).bos = &connection;
    if (world.known.size() < mostKnown) world.known.insert(NormalizeName(ticket.name));
    world.Note("", ticket.name, ticket.migration ? "comes back from a migration" : "signs on");
}

bool RequestService(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    auto family = reader.Word();
    auto tlvs = ReadTlvs(reader.Rest());
    if (!reader.Ok() || !tlvs) return false;
    Ticket ticket{.name = connection.name, .service = static_cast<Service>(family)};
    switch (ticket.service) {
    case Service::Admin:
    case Service::Navigation:
    case Service::Icons:
    case Service::Email: break;
    case Service::Chat: {
        auto wanted = FindTlv(*tlvs, 0x0001);
        if (!wanted) return false;
        Reader block(*wanted);
        block.Word(); // the exchange stands in the cookie as well
        auto room = world.rooms.FindCookie(block.Name());
        if (!block.Ok()) return false;
        if (room && world.options.Has(Departure::RefusedSecondJoins))
            ReplaceMember(world, *room, connection.name);
        // A service that answers unasked lets in for any cookie; such a connection leads to no room.
        const bool anyCookie = world.options.Has(Departure::NavigationAnswers);
        auto word = room ? RefusalOf(*room, connection.name) : anyCookie ? 0 : wordInvalidRoom;
        if (room) NoteRefusal(world, *room, connection.name, word);
        if (auto asked = std::exchange(world.refusals.join, 0)) word = asked;
        if (word != 0) return connection.SendSnac(0x0001, 0x0001, snac.id, ErrorBody(codeDenied, word)), true;
        ticket.room = std::string(Reader(wanted->substr(2)).Name());
        break;
    }
    default: return connection.SendSnac(0x0001, 0x0001, snac.id, WordToStr(0x0005)), true; // no such service
    }
    connection.SendSnac(0x0001, 0x0005, snac.id,
                        WordTlv(0x000D, family) + Tlv(0x0005, world.RedirectAddress()) +
                            Tlv(0x0006, world.NewCookie(std::move(ticket))));
    return true;
}

} // namespace

bool BeginService(World& world, ClientConnection& connection, const std::string& cookie) {
    auto ticket = world.tickets.Take(cookie);
    if (!ticket) return false;
    connection.service = ticket->service;
    connection.name = ticket->name;
    connection.roomCookie = ticket->room;
    if (ticket->service == Service::Bos) ComeOnLine(world, connection, *ticket);
    connection.SendSnac(0x0001, 0x0003, 0, FamiliesOf(ticket->service));
    return true;
}

bool HandleGeneric(World& world, ClientConnection& connection, const Snac& snac) {
    switch (snac.subtype) {
    case 0x0002:
        if (connection.ready) return true;
        connection.ready = true;
        if (world.options.Has(Departure::NavigationAnswers) && connection.service != Service::Bos)
            connection.SendSnac(0x000D, 0x0009, 0, Tlv(0x0002, ByteToStr(11)));
        if (connection.service == Service::Chat) ConnectionReady(world, connection);
        if (connection.service == Service::Bos) world.Note("", connection.name, "is ready");
        return true;
    case 0x0004: return RequestService(world, connection, snac);
    case 0x0006:
        connection.SendSnac(0x0001, 0x0007, snac.id,
                            connection.rates.Answer(connection.genericVersion >= 2, world.Now(),
                                                    world.options.Has(Departure::RateClassesAsTold)));
        return true;
    case 0x000E: connection.SendSnac(0x0001, 0x000F, snac.id, world.InfoOf(connection.name)); return true;
    case 0x0017:
        KeepVersions(connection, snac.body);
        connection.SendSnac(0x0001, 0x0018, snac.id, snac.body);
        return true;
    default: return true; // 0008, 000C, 0011, 001E and the like ask for no answer
    }
}

void SignOffPerson(World& world, ClientConnection& connection) {
    if (connection.service == Service::Bos) DismissOthers(world, connection.name, &connection);
    world.Forget(connection);
}

void SignedOff(World& world, ClientConnection& connection) {
    auto person = world.people.Find(connection.name);
    if (!person || person->bos != &connection) return;
    person->bos = nullptr;
    if (!connection.migrating && !person->scripted) world.people.Remove(connection.name);
}

std::string ElsewhereBody() { return Tlv(0x0009, ByteToStr(1)) + Tlv(0x000B, "http://127.0.0.1/displaced"); }

void DismissOthers(World& world, const std::string& name, const ClientConnection* except) {
    world.EachConnection([&](ClientConnection& other) {
        if (&other == except || !SameName(other.name, name)) return;
        const bool tells =
            except && other.service == Service::Bos && world.options.Has(Departure::MainSignOffs);
        world.Dismiss(other, tells ? ElsewhereBody() : std::string());
    });
}

void SignOffScripted(World& world, const std::string& name) {
    world.rooms.EachRoom([&](Room& room) { LeaveRoom(world, room, name); });
    world.people.Remove(name);
}

} // namespace halyard
