#include "platform/qt/QtTcpServer.h"

#include "platform/qt/QtTcpSocket.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTimer>

#include <chrono>

namespace halyard {

QtTcpServer::QtTcpServer(QObject* parent) : parent(parent), server(new QTcpServer(parent)) {
    auto* port = server.get();
    port->setProxy(QNetworkProxy::NoProxy);
    QObject::connect(port, &QTcpServer::newConnection, port, [this] { TakeAll(); });
    // Qt stops accepting when descriptors run out, and would never start again by itself.
    QObject::connect(port, &QTcpServer::acceptError, port, [port] {
        QTimer::singleShot(std::chrono::seconds(1), port, [port] { port->resumeAccepting(); });
    });
}

QtTcpServer::~QtTcpServer() {
    if (server.get()) server->close();
}

bool QtTcpServer::Listen(const std::string& address, std::int32_t port) {
    if (port < 0 || port > 65535) return false;
    QHostAddress host(QString::fromStdString(address));
    if (host.isNull()) return false;
    server->close();
    return server->listen(host, static_cast<quint16>(port));
}

void QtTcpServer::TakeAll() {
    // A handler that destroys this server closes the port, which leaves nothing pending.
    auto* port = server.get();
    auto* owner = parent;
    auto handler = onConnection;
    while (port->hasPendingConnections()) {
        auto socket = std::make_unique<QtTcpSocket>(owner, port->nextPendingConnection());
        if (handler) handler(std::move(socket));
    }
}

} // namespace halyard
