#pragma once

// Requests of HTTP/1.1, as Halyard makes them of a server's management. The real client stands in
// platform/qt, the simulated one in platform/sim.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

struct HttpRequest {
    std::string method = "GET";
    std::string url; ///< "http://" or "https://", percent-encoded where it must be
    std::vector<std::pair<std::string, std::string>> headers; ///< name and value
    std::string body;
    int timeout = 5000; ///< ms, from the call to the last byte of the answer
};

struct HttpAnswer {
    int status = 0; ///< 0 when there was no whole answer
    std::string body;
    std::string problem; ///< why there was none, in words
    bool IsGood() const { return status >= 200 && status <= 299; }
};

/// Any number of requests at a time. Calls never block and never run a handler before they return. Destroying
/// it drops what is under way, and no handler runs any more; a handler may destroy it.
class Http {
  public:
    /// Longer answers than this are none.
    static constexpr std::size_t LargestAnswer = 65536;
    using Done = std::function<void(const HttpAnswer&)>;

    virtual ~Http() = default;
    /// `done` runs once, with the answer or the problem. Redirects are answers like others and not followed.
    /// A request that ProblemOf finds fault with leaves no trace on any wire.
    virtual void Ask(const HttpRequest& request, Done done) = 0;
};

/// Where a URL leads.
struct HttpPlace {
    bool secure = false; ///< https
    std::string host;    ///< an IPv6 address without its brackets
    std::int32_t port = 0;
    std::string target; ///< path and query, "/" at least
};
/// Nothing for another scheme, a user name in front of the host, a fragment, or characters that stand in no
/// URL.
std::optional<HttpPlace> PlaceOf(std::string_view url);

/// What is wrong with a request, in words; empty for a good one. Names and values that would end a header
/// line or set the length of the body are wrong.
std::string ProblemOf(const HttpRequest& request);

/// All but letters, digits, "-", "_", "." and "~" as "%" and two capital hex digits.
std::string PercentEncoded(std::string_view bytes);

} // namespace halyard
