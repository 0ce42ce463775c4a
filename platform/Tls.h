#pragma once

// What a connection over TLS asks of its peer, and the words for a peer that doesn't meet it. The check
// itself is the socket's: real in platform/qt, simulated in platform/sim.

#include <string>
#include <vector>

namespace halyard {

/// TLS 1.2 or newer is asked for in any case. A peer that doesn't meet the terms gets nothing but the
/// handshake: the connection fails, and is never made plain instead.
struct TlsTerms {
    /// The name, or the address without brackets, that the certificate must be made out to.
    std::string host;
    /// SHA-256 of the one certificate that is taken, whatever its name, dates and issuer: 64 hex digits in
    /// small letters. Empty: one that is valid today, made out to `host` by an issuer that this machine
    /// trusts.
    std::string pin = {};
};

enum class TlsProblem {
    Expired,       ///< `detail`: when
    NotYetValid,   ///< `detail`: from when on
    OtherName,     ///< `detail`: whom it is made out to
    UnknownIssuer, ///< nobody whom this machine trusts stands behind it
    NotPinned,     ///< `detail`: its SHA-256
    Refused,       ///< any other fault of a certificate; `detail`: which
    NoTls,         ///< the peer speaks something else, or none but older versions; `detail`: what was seen
    Unavailable    ///< this machine can't speak TLS
};

struct TlsFault {
    TlsProblem problem = TlsProblem::Refused;
    std::string detail = {};
};

/// A sentence for the operator a fault, each problem once. A detail may come from the peer: it is cut at 200
/// characters, and control characters become blanks.
std::string TlsWords(const TlsTerms& terms, const std::vector<TlsFault>& faults);

/// Under this number a socket reports that TLS with its peer didn't come about.
inline constexpr int TlsFailed = 10013;

/// `host` as connections and certificates take it: an IPv6 address without its brackets.
std::string BareHost(const std::string& host);

} // namespace halyard
