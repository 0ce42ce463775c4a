#include "platform/Http.h"

#include "base/Text.h"

#include <algorithm>

namespace halyard {

namespace {

bool IsLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool AllOf(std::string_view text, std::string_view others) {
    return std::all_of(text.begin(), text.end(),
                       [&](char c) { return IsLetterOrDigit(c) || others.find(c) != others.npos; });
}

/// The characters of a header's name or a method.
bool IsToken(std::string_view text) { return !text.empty() && AllOf(text, "!#$%&'*+-.^_`|~"); }

bool IsHost(std::string_view host, bool bracketed) {
    return !host.empty() && AllOf(host, bracketed ? ":." : ".-_");
}

/// The number behind the host; the scheme's own where none stands.
std::optional<std::int32_t> PortOf(std::string_view text, bool secure) {
    if (text.empty()) return secure ? 443 : 80;
    const auto digits = text.substr(1);
    if (text[0] != ':' || digits.empty() || digits.size() > 5 ||
        digits.find_first_not_of("0123456789") != digits.npos)
        return std::nullopt;
    const auto port = ToInt32(digits);
    if (!port || *port < 1 || *port > 65535) return std::nullopt;
    return port;
}

} // namespace

std::optional<HttpPlace> PlaceOf(std::string_view url) {
    HttpPlace place;
    place.secure = url.starts_with("https://");
    if (!place.secure && !url.starts_with("http://")) return std::nullopt;
    url.remove_prefix(place.secure ? 8 : 7);
    const auto slash = url.find_first_of("/?");
    const auto authority = url.substr(0, slash);
    const auto target = slash == url.npos ? std::string_view() : url.substr(slash);
    if (!AllOf(target, "-._~!$&'()*+,;=:@/?%")) return std::nullopt;
    place.target = target.starts_with('/') ? std::string(target) : "/" + std::string(target);

    const bool bracketed = authority.starts_with('[');
    const auto end = bracketed ? authority.find(']') : authority.find(':');
    if (bracketed && end == authority.npos) return std::nullopt;
    place.host = bracketed ? authority.substr(1, end - 1) : authority.substr(0, end);
    const auto behind = bracketed ? end + 1 : std::min(end, authority.size());
    const auto port = PortOf(authority.substr(behind), place.secure);
    if (!IsHost(place.host, bracketed) || !port) return std::nullopt;
    place.port = *port;
    return place;
}

std::string ProblemOf(const HttpRequest& request) {
    if (!PlaceOf(request.url)) return "the address is no URL of HTTP";
    if (!IsToken(request.method)) return "the method is none";
    for (const auto& [name, value] : request.headers) {
        const bool breaks = std::any_of(value.begin(), value.end(), [](char c) {
            return (static_cast<unsigned char>(c) < 32 && c != '\t') || c == 127;
        });
        if (!IsToken(name) || breaks || SameName(name, "Content-Length") ||
            SameName(name, "Transfer-Encoding"))
            return "a header can't be sent";
    }
    return {};
}

std::string PercentEncoded(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (IsLetterOrDigit(c) || std::string_view("-_.~").find(c) != std::string_view::npos)
            encoded += c;
        else
            (encoded += '%').append({digits[byte >> 4], digits[byte & 15]});
    }
    return encoded;
}

} // namespace halyard
