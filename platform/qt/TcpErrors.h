#pragma once

// The numbers under which connections report their failures, the same in the real and in the simulated
// network.

#include <QAbstractSocket>

namespace halyard {

constexpr int closedByPeer = 10101;

/// The number for an error of Qt's.
constexpr int TcpErrorNumber(QAbstractSocket::SocketError error) {
    switch (error) {
    case QAbstractSocket::RemoteHostClosedError: return closedByPeer;
    case QAbstractSocket::ConnectionRefusedError: return 10061;
    case QAbstractSocket::HostNotFoundError: return 11001;
    case QAbstractSocket::SocketTimeoutError: return 10060;
    case QAbstractSocket::UnsupportedSocketOperationError: return 10049; // not an address to connect to
    default: return 10054;                                               // the connection broke
    }
}

} // namespace halyard
