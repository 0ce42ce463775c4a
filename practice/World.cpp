#include "practice/World.h"

#include "oscar/wire/ModOscarFunctions.h"
#include "practice/Dispatch.h"
#include "practice/service/RoomTraffic.h"
#include "practice/service/Services.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace halyard {

World::World(Platform& platform, PracticeOptions options)
    : platform(platform), options(std::move(options)), rooms(this->options.maxRooms) {}

void World::Note(const std::string& room, const std::string& who, const std::string& what) {
    if (listener) listener({Now(), room, who, what});
}

std::string World::NewCookie(Ticket ticket) {
    while (ticket.cookie.size() < options.cookieLength)
        ticket.cookie += LongToStr(platform.RandomSource().Fraction() * 4294967295.0);
    auto cookie = ticket.cookie;
    tickets.Add(std::move(ticket));
    return cookie;
}

std::string World::InfoOf(const std::string& name) {
    return UserInfo(name, people.Find(name), options.startedAt, Now());
}

void World::Accept(std::unique_ptr<Socket> socket) {
    if (Now() < closedUntil) return socket->Close();
    ended.clear();
    if (connections.size() >= options.maxConnections) {
        Note("", "a stranger",
             "is turned away: full, with " + std::to_string(connections.size()) + " connections");
        return socket->Close();
    }
    connections.push_back(std::make_unique<ClientConnection>(std::move(socket), options.rateClasses, Now()));
    auto& connection = *connections.back();
    connection.onFrame = [this](ClientConnection& from, int channel, std::string_view body) {
        return DispatchFrame(*this, from, channel, body);
    };
    connection.onEnd = [this](ClientConnection& from, const std::string& fault) {
        auto who = from.name.empty() ? std::string("a stranger") : from.name;
        if (!fault.empty())
            Note("", who, fault + ", which ends that connection");
        else if (from.service == Service::Bos)
            Note("", who, "is gone");
        Forget(from);
    };
    connection.Start();
}

void World::Forget(ClientConnection& connection) {
    connection.Close();
    auto found = std::find_if(connections.begin(), connections.end(),
                              [&](const auto& each) { return each.get() == &connection; });
    if (found == connections.end()) return;
    ended.splice(ended.end(), connections, found);
    if (connection.room) LeaveRoom(*this, *connection.room, connection.name);
    if (connection.service == Service::Bos) SignedOff(*this, connection);
}

void World::Dismiss(ClientConnection& connection, std::string_view body) {
    connection.SignOff(body);
    Forget(connection);
}

void World::EachConnection(const std::function<void(ClientConnection&)>& visit) {
    std::vector<ClientConnection*> all;
    for (const auto& connection : connections) all.push_back(connection.get());
    for (auto* connection : all)
        if (connection->Open()) visit(*connection);
}

void World::Heartbeat() {
    ended.clear();
    const bool idle = std::all_of(connections.begin(), connections.end(), [](const auto& connection) {
        return connection->service != Service::None && connection->rates.AllClear();
    });
    if (idle) return;
    EachConnection([this, now = Now()](ClientConnection& connection) {
        if (connection.service == Service::None && now - connection.since >= options.signOnSeconds * 1000LL) {
            Note("", "a stranger", "never signed on");
            return Forget(connection);
        }
        for (int classId = 1; classId <= 5; ++classId)
            if (connection.rates.Recover(classId, now))
                SendRateNotice(*this, connection, classId, RateCode::Clear);
    });
}

void SendRateNotice(World& world, ClientConnection& connection, int classId, RateCode code) {
    auto longForm = connection.genericVersion >= 2;
    connection.SendSnac(0x0001, 0x000A, 0,
                        WordToStr(static_cast<int>(code)) +
                            connection.rates.ClassBytes(classId, longForm, world.Now()));
    auto news = code == RateCode::Alert ? "is warned" : code == RateCode::Limit ? "is limited" : "may go on";
    world.Note(connection.room ? connection.room->name : "", connection.name,
               std::string(news) + " in rate class " + std::to_string(classId));
}

} // namespace halyard
