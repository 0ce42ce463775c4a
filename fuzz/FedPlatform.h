#pragma once

// The machine of a fuzzed bot. Its sockets are always connected; every byte they "receive" is fed by hand,
// and every frame that the bot sends is checked for being one whole FLAP frame.

#include "oscar/wire/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace halyard::fuzz {

/// A finding that no sanitizer would see.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

class FedSocket;
/// The living sockets in the order of their making, which gives them their numbers.
using FedSockets = std::map<int, FedSocket*>;

class FedSocket : public Socket {
  public:
    explicit FedSocket(FedSockets& all) : all(all), number(all.empty() ? 0 : all.rbegin()->first + 1) {
        all[number] = this;
    }
    FedSocket(const FedSocket&) = delete;
    FedSocket& operator=(const FedSocket&) = delete;
    ~FedSocket() override { all.erase(number); }

    void SetTls(std::optional<TlsTerms>) override {}
    void Connect(const std::string&, std::int32_t port) override {
        open = port >= 1 && port <= 65535;
        waiting.clear();
    }
    void Send(std::string_view bytes) override {
        Require(bytes.size() >= 6 && bytes[0] == '*' && bytes[1] >= 1 && bytes[1] <= 5);
        Require(StrToWord(bytes.substr(4)) == static_cast<std::int32_t>(bytes.size() - 6));
    }
    std::string ReadAll() override { return std::exchange(waiting, {}); }
    void Close() override { open = false, waiting.clear(); }
    SocketState State() const override { return open ? SocketState::Connected : SocketState::Closed; }
    std::string RemoteAddress() const override { return open ? "127.0.0.1" : ""; }
    void SetLowWaterMark(std::size_t) override {}

    void Feed(std::string_view bytes) {
        if (!open) return;
        waiting += bytes;
        auto handler = onData; // the socket may be gone before it returns
        if (handler) handler(waiting.size());
    }
    void Fail() {
        if (!std::exchange(open, false)) return;
        auto handler = onError;
        if (handler) handler(10054, "reset");
    }

  private:
    FedSockets& all;
    const int number;
    bool open = false;
    std::string waiting;
};

class FedPlatform : public SimPlatform {
  public:
    using SimPlatform::SimPlatform;
    FedSockets sockets;
    std::unique_ptr<Socket> NewSocket() override { return std::make_unique<FedSocket>(sockets); }
};

} // namespace halyard::fuzz
