#pragma once

// The bot's machine with a tap on its sockets: whoever listens sees each frame that the bot sends and each
// that it reads, at the moment and with the state of that moment. The run owns the one.

#include "platform/sim/SimPlatform.h"
#include "platform/sim/SimSocket.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// What is seen at the tap. `stream` is a number that no other connection of the run has.
class TapListener {
  public:
    virtual ~TapListener() = default;
    virtual void Sent(std::uint64_t stream, std::string_view frame) = 0;
    virtual void Received(std::uint64_t stream, std::string_view frame) = 0;
    /// Nothing more will be seen of the stream.
    virtual void Ended(std::uint64_t stream) = 0;
};

class TapMachine : public SimPlatform {
  public:
    explicit TapMachine(SimWorld& world) : SimPlatform(world), network(world.network) {}

    TapListener* listener = nullptr;
    /// Hears of every run of bytes that the bot sends.
    std::function<void(std::string_view bytes)> onSend;
    std::unique_ptr<Socket> NewSocket() override;
    /// So many replies to ban requests that are still to come are read twice, as from a service that repeats
    /// itself.
    int repeatReplies = 0;
    /// The living sockets, oldest first.
    const std::vector<Socket*>& Sockets() const { return sockets; }

  private:
    class TapSocket;
    SimNetwork& network;
    std::vector<Socket*> sockets;
    std::uint64_t streams = 0;
};

} // namespace halyard
