#include "practice/Dispatch.h"

#include "practice/Wire.h"
#include "practice/service/Bos.h"
#include "practice/service/ChatNavigation.h"
#include "practice/service/Messages.h"
#include "practice/service/RoomTraffic.h"
#include "practice/service/Services.h"
#include "practice/service/SignOn.h"

namespace halyard {

namespace {

/// True when the request may go on to its handler.
bool PassesRates(World& world, ClientConnection& connection, const Snac& snac) {
    auto classId = RateClassOf(snac.family, snac.subtype, world.options.Has(Departure::RateClassesAsTold));
    if (classId == 0) return true;
    auto verdict = connection.rates.Count(classId, world.Now());
    if (verdict.notice != RateCode::None) SendRateNotice(world, connection, classId, verdict.notice);
    if (verdict.disconnect) {
        world.Note("", connection.name, "is disconnected for going far over the rate limit");
        world.Dismiss(connection);
        return false;
    }
    return !verdict.drop;
}

bool DispatchSnac(World& world, ClientConnection& connection, const Snac& snac) {
    if (connection.service == Service::None)
        return snac.family == 0x0017 && HandleSignOn(world, connection, snac);
    if (!PassesRates(world, connection, snac)) return true;
    if (snac.family == 0x0001) return HandleGeneric(world, connection, snac);
    switch (connection.service) {
    case Service::Bos:
        if (snac.family == 0x0004 && snac.subtype == 0x0006) return HandleMessage(world, connection, snac);
        if (snac.family == 0x0002 && (snac.subtype == 0x0005 || snac.subtype == 0x0015))
            return HandleUserInfo(world, connection, snac);
        return HandleBos(world, connection, snac);
    case Service::Navigation: return snac.family != 0x000D || HandleNavigation(world, connection, snac);
    case Service::Chat: return snac.family != 0x000E || HandleRoom(world, connection, snac);
    default: return true;
    }
}

} // namespace

bool DispatchFrame(World& world, ClientConnection& connection, int channel, std::string_view body) {
    switch (channel) {
    case 1: return HandleHello(world, connection, body);
    case 2: {
        auto snac = ParseSnac(body);
        return snac && DispatchSnac(world, connection, *snac);
    }
    case 4:
        if (connection.service == Service::Bos) world.Note("", connection.name, "signs off");
        return SignOffPerson(world, connection), true;
    default: return true; // 3 tells of an error, 5 keeps the connection alive: neither asks for anything
    }
}

} // namespace halyard
