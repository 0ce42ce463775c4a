#pragma once

// What is kept in enforcement.json: whose accounts were suspended for us, and from which hashed addresses
// people came. Texts and their form alone.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

struct EnforcementNames {
    /// `name` is normalised; `at` the base URL of the management that it is known to; times are seconds since
    /// 1970.
    struct Suspension {
        std::string name;
        std::string at;
        std::int64_t since = 0;
        bool operator==(const Suspension&) const = default;
    };
    struct Seen {
        std::string name;
        std::string at;
        std::string hash; ///< 64 hex digits
        std::int64_t when = 0;
        bool operator==(const Seen&) const = default;
    };

    std::vector<Suspension> suspensions; ///< oldest first
    std::vector<Seen> seen;              ///< oldest first
    bool operator==(const EnforcementNames&) const = default;
};

/// Takes what makes sense out of a file's bytes. False when anything had to be passed over, which is then
/// missing in `names`.
bool ReadEnforcementNames(std::string_view bytes, EnforcementNames& names);
/// The bytes that read back as `names`.
std::string WriteEnforcementNames(const EnforcementNames& names);

} // namespace halyard
