#include "platform/sim/SimSocket.h"

#include "platform/sim/SimConnection.h"
#include "platform/sim/SimNetwork.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr int resetByPeer = 10054;
constexpr int timedOut = 10060;
constexpr int refused = 10061;
constexpr int closedByPeer = 10101;
constexpr int badAddress = 10049;

} // namespace

void SimSocket::Connect(const std::string& host, std::int32_t port) {
    Leave(true);
    received.clear();
    unreported = false;
    lowWaterMark = 1;
    state = SocketState::Connecting;
    if (host.empty() || port < 1 || port > 65535) return FailIn(0, badAddress, "Address is not available");
    auto fate = network.NextConnect();
    if (fate == SimNetwork::Fate::Unanswered) return FailIn(silence, timedOut, "Connection timed out");
    if (fate == SimNetwork::Fate::Refused || !network.LeadsHere(host))
        return FailIn(network.Latency(), refused, "Connection refused");
    auto deadline = network.clock.Now() + silence;
    connecting = network.clock.In(network.Latency(), [this, port, deadline] { Reach(port, deadline); });
}

/// The connect has arrived at the machine that it goes to.
void SimSocket::Reach(std::int32_t port, std::int64_t deadline) {
    auto now = network.clock.Now();
    if (now >= deadline) return Fail(timedOut, "Connection timed out", SocketState::Error);
    if (now < network.stalledUntil) {
        auto again = std::min(network.stalledUntil, deadline);
        connecting = network.clock.At(again, [this, port, deadline] { Reach(port, deadline); });
        return;
    }
    if (!network.Accept(*this, port)) return Fail(refused, "Connection refused", SocketState::Error);
    if (auto handler = onConnected) handler(); // a copy, as everywhere
}

void SimSocket::Send(std::string_view bytes) {
    if (state == SocketState::Connected && !bytes.empty()) connection->Send(side, bytes);
}

std::string SimSocket::ReadAll() {
    unreported = false;
    return std::exchange(received, {});
}

void SimSocket::Close() {
    Leave(false);
    received.clear();
    unreported = false;
    state = SocketState::Closed;
}

std::string SimSocket::RemoteAddress() const {
    return state == SocketState::Connected ? network.address : "";
}

void SimSocket::SetLowWaterMark(std::size_t bytes) {
    lowWaterMark = std::max<std::size_t>(bytes, 1);
    if (!unreported || received.size() < lowWaterMark || network.clock.Waiting(reporting)) return;
    reporting = network.clock.In(0, [this] {
        if (unreported && received.size() >= lowWaterMark) Report();
    });
}

void SimSocket::Attach(std::shared_ptr<SimConnection> to, int at) {
    connection = std::move(to);
    side = at;
    state = SocketState::Connected;
    connection->Attach(*this, at);
}

void SimSocket::Arrive(std::string_view bytes) {
    received.append(bytes);
    unreported = true;
    if (received.size() >= lowWaterMark) Report();
}

void SimSocket::Ended(bool reset) {
    if (reset)
        Finish(resetByPeer, "Connection reset by the peer", SocketState::Error);
    else
        Finish(closedByPeer, "Connection closed by the peer", SocketState::Closed);
}

void SimSocket::TimedOut() { Finish(timedOut, "Connection timed out", SocketState::Error); }

/// Leaves the connection, if there is one, and everything that waits to be told.
void SimSocket::Leave(bool reset) {
    network.clock.Cancel(connecting);
    network.clock.Cancel(reporting);
    network.clock.Cancel(finishing);
    if (auto old = std::exchange(connection, nullptr)) {
        old->Close(side, reset ? SimPipe::Ending::Reset : SimPipe::Ending::Closed);
        old->Detach(side);
    }
}

void SimSocket::FailIn(std::int64_t delay, int number, const std::string& description) {
    connecting = network.clock.In(
        delay, [this, number, description] { Fail(number, description, SocketState::Error); });
}

void SimSocket::Fail(int number, const std::string& description, SocketState as) {
    Leave(false);
    state = as;
    if (auto handler = onError) handler(number, description); // a copy: the handler may destroy this socket
}

/// Reports the bytes below the mark, then the end, each in an event of its own: the first may destroy this
/// socket.
void SimSocket::Finish(int number, const std::string& description, SocketState as) {
    if (network.clock.Waiting(finishing)) return;
    finishing = network.clock.In(0, [this, number, description, as] { Fail(number, description, as); });
    if (unreported) Report();
}

void SimSocket::Report() {
    unreported = false;
    if (auto handler = onData) handler(received.size());
}

} // namespace halyard
