#pragma once

// A TCP relay between the bot and the service: it passes streams on in random pieces, lets them stand still
// and resets them. Its port takes the place of the service's own. The test's machine owns the one.

#include "platform/Socket.h"

#include <QHostAddress>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <sys/socket.h>
#include <utility>

namespace halyard {

class Relay {
  public:
    /// What is passed on at once at most, in bytes.
    int pieceMax = 64;

    bool Open(std::int32_t service);
    /// Clients are met over TLS from now on.
    void SpeakTls(const QSslConfiguration& shown);
    std::int32_t Port() const { return door->serverPort(); }
    /// How many streams stand, the ends of which may be about to go.
    std::size_t Streams() const { return static_cast<std::size_t>(door->findChildren<QTcpSocket*>().size()); }
    /// Nothing is passed on while it stands still.
    void Stall(bool on);
    /// Both ends of every stream are reset, with what was under way.
    void ResetAll();

  private:
    class Stream;

    void Meet();

    std::unique_ptr<QTcpServer> door = std::make_unique<QTcpServer>();
    std::int32_t to = 0;
    bool stalled = false;
    std::minstd_rand random{7};
};

class Relay::Stream : public QObject {
  public:
    Stream(Relay& relay, QTcpSocket* client)
        : QObject(relay.door.get()), relay(relay), ends{client, new QTcpSocket} {
        for (auto* end : ends) {
            end->setParent(this);
            connect(end, &QTcpSocket::readyRead, this, &Stream::MoveLater);
            connect(end, &QTcpSocket::connected, this, &Stream::MoveLater);
            connect(end, &QTcpSocket::errorOccurred, this, [this] { ended = true, MoveLater(); });
            connect(end, &QTcpSocket::disconnected, this, [this] { ended = true, MoveLater(); });
        }
        ends[1]->connectToHost(QHostAddress::LocalHost, static_cast<quint16>(relay.to));
        MoveLater();
    }
    void MoveLater() {
        if (!std::exchange(waiting, true))
            QMetaObject::invokeMethod(this, &Stream::Move, Qt::QueuedConnection);
    }
    void Reset() {
        for (auto* end : ends) {
            const linger atOnce{1, 0};
            setsockopt(static_cast<int>(end->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
                       sizeof atOnce);
            end->abort();
        }
        ended = true;
        MoveLater();
    }

  private:
    void Move() {
        waiting = false;
        if (relay.stalled) return;
        const bool passed = Pass(*ends[0], *ends[1]);
        if (Pass(*ends[1], *ends[0]) || passed) return MoveLater();
        if (ended) deleteLater();
    }
    /// One piece. False when there was none, or nobody to take it.
    bool Pass(QTcpSocket& from, QTcpSocket& to) {
        if (to.state() != QAbstractSocket::ConnectedState || from.bytesAvailable() == 0) return false;
        to.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        to.write(from.read(std::uniform_int_distribution<int>(1, relay.pieceMax)(relay.random)));
        to.flush();
        return true;
    }

    Relay& relay;
    std::array<QTcpSocket*, 2> ends;
    bool waiting = false, ended = false;
};

inline bool Relay::Open(std::int32_t service) {
    to = service;
    Meet();
    return door->listen(QHostAddress::LocalHost, 0);
}

inline void Relay::SpeakTls(const QSslConfiguration& shown) {
    const auto port = door->serverPort();
    auto other = std::make_unique<QSslServer>();
    other->setSslConfiguration(shown);
    door = std::move(other);
    Meet();
    door->listen(QHostAddress::LocalHost, port);
}

inline void Relay::Meet() {
    QObject::connect(door.get(), &QTcpServer::pendingConnectionAvailable, door.get(), [this] {
        while (auto* client = door->nextPendingConnection()) new Stream(*this, client); // the door's child
    });
}

inline void Relay::Stall(bool on) {
    stalled = on;
    for (auto* child : door->children())
        if (auto* stream = dynamic_cast<Stream*>(child)) stream->MoveLater();
}

inline void Relay::ResetAll() {
    for (auto* child : door->children())
        if (auto* stream = dynamic_cast<Stream*>(child)) stream->Reset();
}

/// The service's port as clients see it: the relay's.
class RelayedServer : public SocketServer {
  public:
    RelayedServer(Relay& relay, std::unique_ptr<SocketServer> own) : relay(relay), own(std::move(own)) {}
    bool Listen(const std::string& address, std::int32_t) override {
        own->onConnection = onConnection;
        return own->Listen(address, 0) && relay.Open(own->Port());
    }
    std::int32_t Port() const override { return relay.Port(); }

  private:
    Relay& relay;
    std::unique_ptr<SocketServer> own;
};

} // namespace halyard
