#include "platform/qt/QtTcpSocket.h"

namespace halyard {

void QtTcpSocket::Connect(const std::string& host, std::int32_t port) {
    Leave();
    link = tls ? new QtTcpLink(*this, parent, *tls) : new QtTcpLink(*this, parent);
    link->Connect(host, port);
}

void QtTcpSocket::Send(std::string_view bytes) {
    if (link) link->Send(bytes);
}

std::string QtTcpSocket::ReadAll() { return link ? link->ReadAll() : std::string(); }

SocketState QtTcpSocket::State() const { return link ? link->State() : SocketState::Closed; }

std::string QtTcpSocket::RemoteAddress() const { return link ? link->RemoteAddress() : std::string(); }

void QtTcpSocket::SetLowWaterMark(std::size_t bytes) {
    if (link) link->SetLowWaterMark(bytes);
}

void QtTcpSocket::Leave() {
    if (link) link->Leave();
    link = nullptr;
}

} // namespace halyard
