#pragma once

// One TCP connection from its start to its end. It belongs to a QtTcpSocket, is let go with Leave, and then
// stays for as long as it takes to send what is queued. All news of Qt's is looked at from the message loop,
// never from inside a call.

#include "platform/Socket.h"
#include "platform/qt/QtTlsSocket.h"

#include <QTcpSocket>
#include <QTimer>

namespace halyard {

class QtTcpLink : public QObject {
  public:
    /// Reports to the handlers of `owner` until Leave. `parent` ends it at the latest.
    QtTcpLink(Socket& owner, QObject* parent);
    /// The same over TLS: connected once the peer has met the terms.
    QtTcpLink(Socket& owner, QObject* parent, const TlsTerms& terms);
    /// Takes over a connection that a server accepted.
    QtTcpLink(Socket& owner, QObject* parent, QTcpSocket* accepted);

    void Connect(const std::string& host, std::int32_t port);
    void Send(std::string_view bytes);
    std::string ReadAll();
    /// Runs no handler of the owner any more, sends what is queued, then deletes itself.
    void Leave();
    SocketState State() const;
    std::string RemoteAddress() const;
    void SetLowWaterMark(std::size_t bytes);

    ~QtTcpLink() override { tcp->flush(); }

  private:
    QtTcpLink(Socket& owner, QObject* parent, QTcpSocket* tcp, QtTlsSocket* tls);
    void Watch();
    void WatchTls();
    void Prepare();
    void Collect();
    /// Bytes that Qt holds. What comes before the peer has met the terms is not looked at.
    qint64 Held() const { return !tls || connected ? tcp->bytesAvailable() : 0; }
    std::size_t Available() const { return inbox.size() + static_cast<std::size_t>(Held()); }
    void Break(QAbstractSocket::SocketError error);
    void Fail(int number, const QString& description);
    void LookLater();
    void Look();
    void ReportData();
    void ReportEnd();
    void SayGoodbye();
    void EndTls();

    Socket* owner;
    QTcpSocket* tcp;
    QtTlsSocket* tls; ///< the same, or null while it goes plain
    QTimer deadline;
    std::string inbox;
    std::size_t mark = 1;
    int errorNumber = 0;
    QString errorText;
    bool lookPending = false; ///< Look is queued
    bool unreported = false;  ///< bytes came since the last report
    bool connected = false;   ///< and stays so until the end was reported
    bool ended = false;
    bool closed = false; ///< the end was reported
};

} // namespace halyard
