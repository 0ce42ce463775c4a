#include "platform/qt/QtTlsSocket.h"

#include "base/Latin1.h"

#include <QCryptographicHash>
#include <QSslConfiguration>
#include <QSslError>

#include <utility>

namespace halyard {

namespace {

TlsFault Fault(TlsProblem problem, const QString& detail = {}) {
    return {problem, FromUtf8(detail.toStdString())};
}

QString Fingerprint(const QSslCertificate& certificate) {
    return QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex());
}

QString Date(const QDateTime& moment) { return moment.toUTC().toString(Qt::ISODate); }

/// Names and addresses that the certificate is made out to.
QString Holders(const QSslCertificate& certificate) {
    QStringList holders = certificate.subjectAlternativeNames().values();
    if (holders.isEmpty()) holders = certificate.subjectInfo(QSslCertificate::CommonName);
    holders.sort();
    return holders.isEmpty() ? QStringLiteral("nobody") : holders.join(QStringLiteral(", "));
}

TlsProblem ProblemOf(QSslError::SslError error) {
    switch (error) {
    case QSslError::CertificateExpired: return TlsProblem::Expired;
    case QSslError::CertificateNotYetValid: return TlsProblem::NotYetValid;
    case QSslError::HostNameMismatch: return TlsProblem::OtherName;
    case QSslError::UnableToGetIssuerCertificate:
    case QSslError::UnableToGetLocalIssuerCertificate:
    case QSslError::UnableToVerifyFirstCertificate:
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
    case QSslError::CertificateUntrusted: return TlsProblem::UnknownIssuer;
    default: return TlsProblem::Refused;
    }
}

TlsFault FaultOf(const QSslError& error, const QSslCertificate& leaf) {
    const auto blamed = error.certificate().isNull() ? leaf : error.certificate();
    const auto problem = ProblemOf(error.error());
    switch (problem) {
    case TlsProblem::Expired: return Fault(problem, Date(blamed.expiryDate()));
    case TlsProblem::NotYetValid: return Fault(problem, Date(blamed.effectiveDate()));
    case TlsProblem::OtherName: return Fault(problem, Holders(leaf));
    default: return Fault(problem, error.errorString());
    }
}

} // namespace

QtTlsSocket::QtTlsSocket(TlsTerms asked) : terms(std::move(asked)) {
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    configuration.setPeerVerifyDepth(0); // the whole chain
    setSslConfiguration(configuration);
    connect(this, &QSslSocket::sslErrors, this, &QtTlsSocket::Judge);
}

void QtTlsSocket::Start(const QString& host, quint16 port) {
    connectToHostEncrypted(host, port, QString::fromStdString(ToUtf8(terms.host)));
}

bool QtTlsSocket::IsPinned() const {
    return !terms.pin.empty() && Fingerprint(peerCertificate()).toStdString() == terms.pin;
}

void QtTlsSocket::Judge(const QList<QSslError>& errors) {
    if (IsPinned()) return ignoreSslErrors(); // the pin says more than name, dates and issuer
    if (!terms.pin.empty()) return;
    for (const auto& error : errors) faults.push_back(FaultOf(error, peerCertificate()));
}

bool QtTlsSocket::MeetsTerms() const { return isEncrypted() && (terms.pin.empty() || IsPinned()); }

std::vector<TlsFault> QtTlsSocket::FaultsBehind(SocketError error) const {
    if (!supportsSsl()) return {{TlsProblem::Unavailable}};
    if (!terms.pin.empty() && !peerCertificate().isNull() && !IsPinned())
        return {Fault(TlsProblem::NotPinned, Fingerprint(peerCertificate()))};
    if (!faults.empty()) return faults;
    switch (error) {
    case RemoteHostClosedError: // which it does to what it doesn't understand
    case SslHandshakeFailedError:
    case SslInternalError:
    case SslInvalidUserDataError: return {Fault(TlsProblem::NoTls, errorString())};
    default: return {};
    }
}

QString QtTlsSocket::Explain(SocketError error, int& number) const {
    const auto behind = FaultsBehind(error);
    if (behind.empty()) return errorString();
    number = TlsFailed;
    return QString::fromStdString(ToUtf8(TlsWords(terms, behind)));
}

} // namespace halyard
