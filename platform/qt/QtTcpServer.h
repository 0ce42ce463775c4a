#pragma once

// A listening TCP port over Qt.

#include "platform/Socket.h"
#include "platform/qt/Kept.h"

#include <QTcpServer>

namespace halyard {

class QtTcpServer : public SocketServer {
  public:
    /// `parent` owns the port and the accepted connections.
    explicit QtTcpServer(QObject* parent);
    ~QtTcpServer() override;

    bool Listen(const std::string& address, std::int32_t port) override;
    std::int32_t Port() const override { return server->serverPort(); }

  private:
    void TakeAll();

    QObject* parent;
    Kept<QTcpServer> server;
};

} // namespace halyard
