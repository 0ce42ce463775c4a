#pragma once

// A socket of the simulated network. The network must outlive it.

#include "platform/Socket.h"
#include "platform/sim/SimClock.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace halyard {

class SimConnection;
class SimNetwork;

class SimSocket : public Socket {
  public:
    /// After so many milliseconds without an answer a connect or an unacknowledged send fails.
    static constexpr int silence = 60000;
    /// And one on which nothing is sent, when its probes find none.
    static constexpr int probing = 75000;

    explicit SimSocket(SimNetwork& network) : network(network) {}
    ~SimSocket() override { Close(); }
    SimSocket(const SimSocket&) = delete;
    SimSocket& operator=(const SimSocket&) = delete;

    void SetTls(std::optional<TlsTerms> terms) override { tls = std::move(terms); }
    /// Both sides are connected: the first moment in which this one may send.
    std::function<void()> onConnected;

    void Connect(const std::string& host, std::int32_t port) override;
    void Send(std::string_view bytes) override;
    std::string ReadAll() override;
    void Close() override;
    SocketState State() const override { return state; }
    std::string RemoteAddress() const override;
    void SetLowWaterMark(std::size_t bytes) override;

    // What the network tells its sockets.
    const std::shared_ptr<SimConnection>& Connection() const { return connection; }
    void Attach(std::shared_ptr<SimConnection> to, int at);
    void Arrive(std::string_view bytes);
    /// The peer's stream has ended, orderly or with a reset.
    void Ended(bool reset);
    /// What was sent has found no answer.
    void TimedOut();

  private:
    void Leave(bool reset);
    void Reach(std::int32_t port, std::int64_t deadline);
    void FailIn(std::int64_t delay, int number, const std::string& description);
    void Fail(int number, const std::string& description, SocketState as);
    void Finish(int number, const std::string& description, SocketState as);
    void Report();

    SimNetwork& network;
    std::shared_ptr<SimConnection> connection;
    int side = 0;
    SocketState state = SocketState::Closed;
    std::optional<TlsTerms> tls;
    std::string received;
    bool unreported = false; // bytes came since onData ran
    std::size_t lowWaterMark = 1;
    SimClock::Ticket connecting;
    SimClock::Ticket reporting;
    SimClock::Ticket finishing;
};

} // namespace halyard
