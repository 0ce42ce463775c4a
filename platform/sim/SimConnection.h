#pragma once

// A simulated connection: two streams between two sockets. It lives as long as a socket is attached or
// something is under way.

#include "platform/sim/SimNetwork.h"
#include "platform/sim/SimPipe.h"

#include <array>
#include <cstdint>
#include <memory>

namespace halyard {

class SimConnection : public std::enable_shared_from_this<SimConnection> {
  public:
    explicit SimConnection(SimNetwork& network) : network(network), pipes{SimPipe(*this), SimPipe(*this)} {}

    SimNetwork& Network() const { return network; }
    /// Sides are 0 for who connected and 1 for who listened; a pipe has the number of its sender.
    void Attach(SimSocket& socket, int side);
    /// The socket of this side is gone: it hears nothing more.
    void Detach(int side);
    void Send(int side, std::string_view bytes);
    /// This side has ended its stream.
    void Close(int side, SimPipe::Ending how) { pipes[static_cast<std::size_t>(side)].End(how); }

    /// Both sides see an error, what is under way is lost.
    void Reset();
    /// Nothing arrives any more. Who sends nothing finds out by the probes of a connection at rest.
    void Sever();
    bool Severed() const { return severed; }
    void StallUntil(std::int64_t moment) { stalledUntil = moment; }
    std::int64_t StalledUntil() const;
    /// True while both sides are attached and neither has ended its stream.
    bool Standing() const;

  private:
    SimNetwork& network;
    std::array<SimPipe, 2> pipes;
    bool severed = false;
    std::int64_t stalledUntil = 0;
};

} // namespace halyard
