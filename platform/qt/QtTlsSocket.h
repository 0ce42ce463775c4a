#pragma once

// A TCP connection of Qt's that goes over TLS. What it trusts is Qt's default configuration: the authorities
// of the machine.

#include "platform/Tls.h"

#include <QSslSocket>

#include <vector>

namespace halyard {

class QtTlsSocket : public QSslSocket {
  public:
    explicit QtTlsSocket(TlsTerms terms);

    void Start(const QString& host, quint16 port);
    /// Once `encrypted` was told, and before anything is sent: whether the peer is the one that is meant.
    bool MeetsTerms() const;
    /// What to tell of an error before that: what is wrong with the peer, or Qt's words where it isn't TLS
    /// that failed. `number` becomes TlsFailed where it is.
    QString Explain(SocketError error, int& number) const;

  private:
    bool IsPinned() const;
    void Judge(const QList<QSslError>& errors);
    std::vector<TlsFault> FaultsBehind(SocketError error) const;

    TlsTerms terms;
    std::vector<TlsFault> faults; // of the certificate
};

} // namespace halyard
