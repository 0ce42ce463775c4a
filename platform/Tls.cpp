#include "platform/Tls.h"

#include <algorithm>
#include <set>

namespace halyard {

namespace {

constexpr std::size_t mostDetail = 200; // characters

std::string Told(const std::string& detail) {
    auto told = detail.substr(0, mostDetail);
    std::replace_if(
        told.begin(), told.end(), [](unsigned char c) { return c < 32 || c == 127; }, ' ');
    return told;
}

std::string Sentence(TlsProblem problem, const std::string& host, const std::string& detail) {
    switch (problem) {
    case TlsProblem::Expired: return "The certificate of " + host + " has expired (" + detail + ").";
    case TlsProblem::NotYetValid: return "The certificate of " + host + " isn't valid yet (" + detail + ").";
    case TlsProblem::OtherName:
        return "The certificate isn't made out to " + host + ", but to " + detail + ".";
    case TlsProblem::UnknownIssuer:
        return "The certificate of " + host + " is from nobody whom this machine trusts.";
    case TlsProblem::NotPinned:
        return "The certificate of " + host + " isn't the pinned one. Its SHA-256 is " + detail + ".";
    case TlsProblem::Refused: return "The certificate of " + host + " is refused: " + detail + ".";
    case TlsProblem::NoTls: return host + " doesn't answer in TLS 1.2 or newer (" + detail + ").";
    case TlsProblem::Unavailable: break;
    }
    return "This machine can't speak TLS.";
}

} // namespace

std::string TlsWords(const TlsTerms& terms, const std::vector<TlsFault>& faults) {
    std::string words;
    std::set<TlsProblem> told;
    for (const auto& fault : faults)
        if (told.insert(fault.problem).second)
            words += Sentence(fault.problem, Told(terms.host), Told(fault.detail)) + " ";
    return words + "Nothing was sent.";
}

std::string BareHost(const std::string& host) {
    const bool inBrackets = host.size() > 2 && host.front() == '[' && host.back() == ']';
    return inBrackets ? host.substr(1, host.size() - 2) : host;
}

} // namespace halyard
