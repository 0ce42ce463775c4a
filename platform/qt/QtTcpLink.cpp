#include "platform/qt/QtTcpLink.h"

#include "base/Latin1.h"
#include "platform/qt/TcpErrors.h"
#include "platform/qt/TcpOptions.h"

#include <QHostAddress>
#include <QMetaObject>
#include <QNetworkProxy>

#include <algorithm>
#include <chrono>
#include <unistd.h>
#include <utility>

namespace halyard {

namespace {

constexpr std::chrono::seconds patience{60};

/// A peer that sends faster than its owner reads waits in the kernel from twice this on.
constexpr std::size_t bufferBytes = 1 << 20;

} // namespace

QtTcpLink::QtTcpLink(Socket& owner, QObject* parent) : QtTcpLink(owner, parent, new QTcpSocket) {}

QtTcpLink::QtTcpLink(Socket& owner, QObject* parent, QTcpSocket* accepted)
    : QtTcpLink(owner, parent, accepted, nullptr) {}

QtTcpLink::QtTcpLink(Socket& owner, QObject* parent, const TlsTerms& terms)
    : QtTcpLink(owner, parent, nullptr, new QtTlsSocket(terms)) {}

QtTcpLink::QtTcpLink(Socket& owner, QObject* parent, QTcpSocket* plain, QtTlsSocket* tls)
    : QObject(parent), owner(&owner), tcp(tls ? tls : plain), tls(tls) {
    tcp->setParent(this);
    Watch();
    if (tcp->state() == QAbstractSocket::ConnectedState) Prepare();
    Collect();
}

void QtTcpLink::Watch() {
    tcp->setReadBufferSize(bufferBytes);
    if (tls)
        WatchTls();
    else
        connect(tcp, &QTcpSocket::connected, this, &QtTcpLink::Prepare);
    connect(tcp, &QTcpSocket::readyRead, this, &QtTcpLink::Collect);
    connect(tcp, &QTcpSocket::errorOccurred, this, &QtTcpLink::Break);
    connect(tcp, &QTcpSocket::disconnected, this,
            [this] { Fail(closedByPeer, QStringLiteral("The connection was closed")); });
    deadline.setSingleShot(true);
    connect(&deadline, &QTimer::timeout, this, [this] {
        Fail(TcpErrorNumber(QAbstractSocket::SocketTimeoutError), QStringLiteral("Connection timed out"));
        tcp->abort();
    });
}

void QtTcpLink::WatchTls() {
    connect(tls, &QSslSocket::encrypted, this,
            [this] { tls->MeetsTerms() ? Prepare() : Break(QAbstractSocket::SslHandshakeFailedError); });
}

void QtTcpLink::Collect() {
    if (Held() == 0) return;
    // Qt throws its own buffer away when a write fails, but what came before the end is still to be reported.
    if (inbox.size() < bufferBytes) inbox += tcp->readAll().toStdString();
    unreported = true;
    LookLater();
}

void QtTcpLink::Prepare() {
    connected = true;
    deadline.stop();
    SetTcpOptions(tcp->socketDescriptor());
}

void QtTcpLink::Connect(const std::string& host, std::int32_t port) {
    if (port < 1 || port > 65535) {
        Fail(TcpErrorNumber(QAbstractSocket::UnsupportedSocketOperationError),
             QStringLiteral("Invalid port"));
        return;
    }
    tcp->setProxy(QNetworkProxy::NoProxy);
    deadline.start(patience);
    const auto bare = QString::fromStdString(ToUtf8(BareHost(host)));
    if (tls)
        tls->Start(bare, static_cast<quint16>(port));
    else
        tcp->connectToHost(bare, static_cast<quint16>(port));
}

void QtTcpLink::Send(std::string_view bytes) {
    if (!connected || ended) return;
    // The loop sends it, after reading: a write that finds the connection reset would hide what came before.
    tcp->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string QtTcpLink::ReadAll() {
    unreported = false;
    auto bytes = std::exchange(inbox, {});
    if (Held() > 0) bytes += tcp->readAll().toStdString();
    return bytes;
}

SocketState QtTcpLink::State() const {
    if (closed) return errorNumber == closedByPeer ? SocketState::Closed : SocketState::Error;
    if (connected) return SocketState::Connected;
    return tcp->state() == QAbstractSocket::HostLookupState ? SocketState::Resolving
                                                            : SocketState::Connecting;
}

std::string QtTcpLink::RemoteAddress() const {
    if (State() != SocketState::Connected) return {};
    return FromUtf8(tcp->peerAddress().toString().toStdString());
}

void QtTcpLink::SetLowWaterMark(std::size_t bytes) {
    // A mark above what the buffer takes would never be reached.
    mark = std::clamp<std::size_t>(bytes, 1, bufferBytes);
    LookLater();
}

void QtTcpLink::Break(QAbstractSocket::SocketError error) {
    auto number = TcpErrorNumber(error);
    const auto words = tls && !connected ? tls->Explain(error, number) : tcp->errorString();
    Fail(number, words);
}

void QtTcpLink::Fail(int number, const QString& description) {
    if (ended) return;
    ended = true;
    errorNumber = number;
    errorText = description;
    deadline.stop();
    if (tls && !connected)
        QMetaObject::invokeMethod(
            tcp, [this] { tcp->abort(); }, Qt::QueuedConnection);
    LookLater();
}

void QtTcpLink::LookLater() {
    if (lookPending) return;
    lookPending = true;
    QMetaObject::invokeMethod(this, &QtTcpLink::Look, Qt::QueuedConnection);
}

void QtTcpLink::Look() {
    lookPending = false;
    ReportData();
    ReportEnd();
}

void QtTcpLink::ReportData() {
    auto available = Available();
    if (!owner || closed || !unreported || available == 0 || (!ended && available < mark)) return;
    unreported = false;
    if (auto handler = owner->onData) handler(available);
}

void QtTcpLink::ReportEnd() {
    if (!owner || !ended || closed) return;
    closed = true;
    if (auto handler = owner->onError) handler(errorNumber, FromUtf8(errorText.toStdString()));
}

void QtTcpLink::Leave() {
    owner = nullptr;
    deadline.stop();
    tcp->disconnect(this);
    if (tcp->state() != QAbstractSocket::ConnectedState || !connected || ended) {
        tcp->abort();
        deleteLater();
        return;
    }
    deadline.disconnect();
    connect(&deadline, &QTimer::timeout, this, &QObject::deleteLater);
    deadline.start(patience);
    tls ? EndTls() : SayGoodbye();
}

/// Sends what is queued and the end of the stream of TLS. Qt would close the connection right behind that; a
/// second descriptor of it stays for the plain goodbye.
void QtTcpLink::EndTls() {
    auto* rest = new QTcpSocket(this);
    rest->setReadBufferSize(bufferBytes);
    rest->setSocketDescriptor(dup(static_cast<int>(tcp->socketDescriptor())));
    connect(tls, &QTcpSocket::disconnected, this, [this, rest] {
        tcp = rest;
        if (tcp->state() == QAbstractSocket::ConnectedState)
            SayGoodbye();
        else
            deleteLater();
    });
    tls->disconnectFromHost();
}

void QtTcpLink::SayGoodbye() {
    // Closing outright while unread bytes wait would make the kernel reset the connection and drop what the
    // peer has not read yet. So only our direction ends, what still comes is thrown away, and the peer's end
    // finishes it.
    auto endSending = [this] {
        if (tcp->bytesToWrite() == 0) EndSending(tcp->socketDescriptor());
    };
    connect(tcp, &QTcpSocket::bytesWritten, this, endSending);
    connect(tcp, &QTcpSocket::readyRead, this, [this] { tcp->readAll(); });
    connect(tcp, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    connect(tcp, &QTcpSocket::errorOccurred, this, &QObject::deleteLater);
    tcp->readAll();
    endSending();
}

} // namespace halyard
