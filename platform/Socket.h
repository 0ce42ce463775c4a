#pragma once

// A TCP stream and a listening port, as Halyard asks for them. The real ones stand in platform/qt,
// the simulated ones in platform/sim.

#include "platform/Tls.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

enum class SocketState { Closed = 0, Resolving = 4, Connecting = 6, Connected = 7, Error = 9 };

/// One TCP connection. Calls never block and never run a handler before they return.
/// A handler may close, reconnect or destroy its own socket.
class Socket {
  public:
    virtual ~Socket() = default;

    /// `available` bytes can be read. Runs again only after new bytes arrived, and only once at least the
    /// low-water mark of bytes is there.
    std::function<void(std::size_t available)> onData;
    /// The connection failed or ended: refused, reset, timed out, or closed by the peer. All bytes that came
    /// before were reported through `onData` first. The socket is closed by now.
    std::function<void(int number, const std::string& description)> onError;

    /// What the connections that Connect starts from now on ask of their peers; nothing, as at first: they go
    /// plain. Over TLS the state is Connected once the peer has met the terms; a peer that doesn't fails with
    /// the number TlsFailed and words that say why.
    virtual void SetTls(std::optional<TlsTerms> terms) = 0;
    /// Drops what was there and starts a connection to `host` (name or address, an IPv6 one with or without
    /// brackets) at `port` (1 to 65535; any other value fails through `onError`). Dead peers are noticed
    /// within 60 seconds of silence to what was sent.
    virtual void Connect(const std::string& host, std::int32_t port) = 0;
    /// Queues bytes for sending; lost without a word unless the state is Connected.
    virtual void Send(std::string_view bytes) = 0;
    /// Takes all bytes that have arrived.
    virtual std::string ReadAll() = 0;
    /// Ends the connection, sending first what is queued. No handler runs afterwards.
    virtual void Close() = 0;
    virtual SocketState State() const = 0;
    /// The peer's address in numbers, empty while not connected.
    virtual std::string RemoteAddress() const = 0;
    /// From how many bytes on `onData` runs, at least 1. The mark holds for the data that is waiting, too,
    /// and is 1 again after Connect. Bytes below the mark are reported when the connection ends.
    virtual void SetLowWaterMark(std::size_t bytes) = 0;
};

/// A listening TCP port.
class SocketServer {
  public:
    virtual ~SocketServer() = default;

    /// A peer came: the socket is connected, and its handlers must be set before this returns.
    std::function<void(std::unique_ptr<Socket>)> onConnection;

    /// Listens on `address` ("127.0.0.1") at `port`; 0 takes any free one. False when that is not possible.
    virtual bool Listen(const std::string& address, std::int32_t port) = 0;
    /// The port it listens on, 0 before Listen.
    virtual std::int32_t Port() const = 0;
};

} // namespace halyard
