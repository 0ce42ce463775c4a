// What a network's ways change beyond a line of a handler, and what is told to both listeners.

#include "oscar/TillerSock.h"
#include "oscar/networks/HostAndPort.h"
#include "oscar/networks/Reach.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/TlvWalk.h"

#include <string_view>

namespace halyard {

void TillerSock::UseNetwork(const Network& network) {
    Secrets = network.secrets;
    departures.SetWays(network.ways);
    strPin = network.pin;
}

bool TillerSock::Guarded(Departure guard, std::int16_t room, const std::string& who) {
    const bool acts = Departs(guard);
    if (telling.news) telling.news->GuardAsked(guard, acts, room, who);
    return acts;
}

std::string TillerSock::HostOf(const std::string& strHost) const {
    return Departs(Departure::ReachableRedirects) ? ReachableHost(strHost, signOn.strPeer) : strHost;
}

std::optional<TlsTerms> TillerSock::TermsOf(const std::string& strHost) const {
    auto terms = signOn.tls; // as at sign-on, whatever was switched since
    if (terms && !IsAddress(strHost)) terms->host = strHost;
    return terms;
}

void TillerSock::TakeAddress(const std::string& strAddress) {
    const bool whole = Departs(Departure::ReachableRedirects) || signOn.tls;
    const auto split = whole ? SplitHostAndPort : SplitAddress;
    split(strAddress, service.strServiceHost, service.lngServicePort);
}

void TillerSock::ConnectService(int Index) {
    const auto host = HostOf(service.strServiceHost);
    Sock.Connect(Index, host, service.lngServicePort, TermsOf(host));
}

/// The main connection's end by the service. With TLV 0009, or with four bytes that are its type and value
/// without a length, the name signed on elsewhere: to come back would only start a fight.
void TillerSock::HandleMainSignOff(int Index, const std::string& strBody) {
    constexpr std::string_view reasonType("\0\x09", 2);
    constexpr std::string_view pageType("\0\x0B", 2);
    std::string reason;
    std::string page;
    bool elsewhere = strBody.size() == 4;
    if (elsewhere)
        reason = Mid(strBody, 3);
    else
        EachTLV(strBody, [&](std::string_view type, std::string_view value) {
            if (type == reasonType) elsewhere = true, reason = value;
            if (type == pageType) page = value;
            return true;
        });
    if (!elsewhere && signOn.ServerPaused) return; // a migration is due, or the socket's end tells it
    if (!elsewhere) return SocketError(Index);
    int number = 0;
    for (const char c : Left(reason, 2)) number = number << 8 | static_cast<unsigned char>(c);
    if (telling.news) telling.news->SignedOffElsewhere(number, page);
    LogOff();
}

void TillerSock::Refuse(const char* text, std::int16_t code, const std::string& family) {
    if (telling.news) telling.news->RoomRefused(code, family, text);
    events.Error(text, code, 0, family);
}

void TillerSock::TellStage(const char* text) {
    if (telling.news) telling.news->SignOnStage(text);
    events.LoginStatus(text);
}

void TillerSock::TellLoginError(const std::string& text, int code) {
    if (telling.news) telling.news->SignOnRefused(code, text);
    events.LoginError(text, static_cast<std::int16_t>(code));
}

void TillerSock::TellLost(int Index, const std::string& text) {
    if (telling.news) telling.news->ConnectionEnded(Index, text);
    events.ConnectionLost(static_cast<std::int16_t>(Index), text);
}

} // namespace halyard
