#include "platform/sim/SimNetwork.h"

#include "platform/sim/SimConnection.h"
#include "platform/sim/SimServer.h"
#include "platform/sim/SimSocket.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr std::int32_t firstFreePort = 49152;
constexpr std::int32_t lastPort = 65535;

std::shared_ptr<SimConnection> ConnectionOf(const Socket& socket) {
    auto simulated = dynamic_cast<const SimSocket*>(&socket);
    return simulated ? simulated->Connection() : nullptr;
}

} // namespace

void SimNetwork::DropAll() {
    for (const auto& known : connections)
        if (auto connection = known.lock()) connection->Reset();
}

void SimNetwork::DropConnection(const Socket& socket) {
    if (auto connection = ConnectionOf(socket)) connection->Reset();
}

void SimNetwork::HalfOpen(const Socket& socket) {
    if (auto connection = ConnectionOf(socket)) connection->Sever();
}

void SimNetwork::StallConnection(const Socket& socket, int milliseconds) {
    if (auto connection = ConnectionOf(socket)) connection->StallUntil(clock.Now() + milliseconds);
}

std::size_t SimNetwork::ConnectionCount() const {
    auto standing = std::count_if(connections.begin(), connections.end(), [](const auto& known) {
        auto connection = known.lock();
        return connection && connection->Standing();
    });
    return static_cast<std::size_t>(standing);
}

bool SimNetwork::Fails(Operation operation) {
    ++operations[Index(operation)];
    auto& left = failing[Index(operation)];
    return left > 0 && --left == 0;
}

SimNetwork::Fate SimNetwork::NextConnect() {
    if (Fails(Operation::Connect)) return Fate::Refused;
    if (refuseNext > 0) return --refuseNext, Fate::Refused;
    if (silentNext > 0) return --silentNext, Fate::Unanswered;
    if (random.Chance(faults.refuse)) return Fate::Refused;
    if (random.Chance(faults.silent)) return Fate::Unanswered;
    return Fate::Accepted;
}

std::vector<TlsFault> SimNetwork::FaultsOf(const TlsTerms& terms, std::int32_t port) const {
    if (!servers.contains(port)) return {};
    const auto found = certificates.find(port);
    if (found == certificates.end()) return {{TlsProblem::NoTls, "it speaks plain"}};
    const auto& shown = found->second;
    if (terms.pin == shown.fingerprint && !terms.pin.empty()) return {};
    if (!terms.pin.empty()) return {{TlsProblem::NotPinned, shown.fingerprint}};
    std::vector<TlsFault> faults;
    if (!shown.trusted) faults.push_back({TlsProblem::UnknownIssuer});
    if (shown.expired) faults.push_back({TlsProblem::Expired, "yesterday"});
    if (shown.name != terms.host) faults.push_back({TlsProblem::OtherName, shown.name});
    return faults;
}

std::int32_t SimNetwork::Listen(SimServer& server, std::int32_t port) {
    if (Fails(Operation::Listen) || port < 0 || port > lastPort) return 0;
    if (port == 0)
        for (port = firstFreePort; port < lastPort && servers.contains(port);) ++port;
    return servers.emplace(port, &server).second ? port : 0;
}

bool SimNetwork::Accept(SimSocket& client, std::int32_t port) {
    auto listening = servers.find(port);
    if (listening == servers.end()) return false;
    auto& server = *listening->second;
    auto peer = std::make_unique<SimSocket>(*this);
    auto connection = std::make_shared<SimConnection>(*this);
    std::erase_if(connections, [](const auto& known) { return known.expired(); });
    connections.push_back(connection);
    client.Attach(connection, 0);
    peer->Attach(connection, 1);
    if (auto handler = server.onConnection) handler(std::move(peer));
    return true;
}

} // namespace halyard
