#pragma once

// A TCP connection over Qt. Every connection it makes is a QtTcpLink of its own, so that the old one can end
// in peace while the new one starts.

#include "platform/Socket.h"
#include "platform/qt/QtTcpLink.h"

#include <QPointer>

#include <optional>
#include <utility>

namespace halyard {

class QtTcpSocket : public Socket {
  public:
    /// `parent` owns the connections; the socket must not outlive it in use.
    explicit QtTcpSocket(QObject* parent) : parent(parent) {}
    /// A connection that a server accepted.
    QtTcpSocket(QObject* parent, QTcpSocket* accepted)
        : parent(parent), link(new QtTcpLink(*this, parent, accepted)) {}
    ~QtTcpSocket() override { Leave(); }

    void SetTls(std::optional<TlsTerms> terms) override { tls = std::move(terms); }
    void Connect(const std::string& host, std::int32_t port) override;
    void Send(std::string_view bytes) override;
    std::string ReadAll() override;
    void Close() override { Leave(); }
    SocketState State() const override;
    std::string RemoteAddress() const override;
    void SetLowWaterMark(std::size_t bytes) override;

  private:
    void Leave();

    QObject* parent;
    std::optional<TlsTerms> tls;
    QPointer<QtTcpLink> link;
};

} // namespace halyard
