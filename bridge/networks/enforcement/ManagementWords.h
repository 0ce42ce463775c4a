#pragma once

// What is said to a server's management and what it answers: paths, bodies and addresses, as texts alone.

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

struct HttpAnswer;

/// The URL in front of every path, without a "/" at its end, of an address as the operator writes it:
/// "host:port" for plain HTTP, or a URL. Nothing when it is none, or has a query.
std::optional<std::string> ManagementBase(std::string_view address);

/// The name and value of "Name: value"; nothing when it is no header that can be sent.
std::optional<std::pair<std::string, std::string>> ManagementHeader(std::string_view text);

/// False for a name that can't be told of safely, whatever a proxy makes of it on its way: without a
/// character, of dots alone, with "/", "\" or control characters, or with ":", at which the desk's records
/// part. No server lets one sign on.
bool CanBeManaged(std::string_view name);

/// "/session/" or "/user/.../account" of a name in normal form, as UTF-8, percent-encoded.
std::string SessionPath(std::string_view name);
std::string AccountPath(std::string_view name);
std::string SuspensionBody(bool suspended);

/// What the operator reads of an answer that is no yes.
std::string WordsOf(const HttpAnswer& answer);

/// The addresses of the sessions that an answer tells for this name, each once, without port, brackets or
/// zone; those of other names are passed over. Takes an object with "sessions", a bare list, or one session.
/// Empty for an answer that makes no sense. At most 100 sessions are looked at.
std::vector<std::string> SessionAddresses(std::string_view body, std::string_view name);

} // namespace halyard
