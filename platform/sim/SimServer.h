#pragma once

// A listening port of the simulated network. The network must outlive it.

#include "platform/Socket.h"
#include "platform/sim/SimNetwork.h"

#include <string>

namespace halyard {

class SimServer : public SocketServer {
  public:
    explicit SimServer(SimNetwork& network) : network(network) {}
    ~SimServer() override { Stop(); }
    SimServer(const SimServer&) = delete;
    SimServer& operator=(const SimServer&) = delete;

    /// Leaves the port it listened on before. The address says nothing here: there is one machine.
    bool Listen(const std::string& address, std::int32_t port) override;
    std::int32_t Port() const override { return listening; }

  private:
    void Stop();

    SimNetwork& network;
    std::int32_t listening = 0;
};

} // namespace halyard
