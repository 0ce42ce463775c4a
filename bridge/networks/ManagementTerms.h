#pragma once

// How Halyard reaches the management interface of a server of one's own, and what it may do there.

#include <string>

namespace halyard {

struct ManagementTerms {
    std::string address = "127.0.0.1:8080"; ///< host and port of plain HTTP, or a URL up to the path
    std::string header = {};     ///< "Name: value" for a proxy before it; empty for none. A secret.
    bool enforce = false;        ///< bans end the person's session on the whole network
    bool suspend = false;        ///< who is put out five times in ten minutes is suspended
    bool watchAddresses = false; ///< keep a keyed hash of each session's address
    bool operator==(const ManagementTerms&) const = default;
};

} // namespace halyard
