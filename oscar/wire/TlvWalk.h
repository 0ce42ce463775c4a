#pragma once

// The handlers' way through a parsed TLV list: type by type, each taken off the front once it was looked at.

#include "base/Collection.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <string>

namespace halyard {

/// Calls `use(type as hex digits, value)` for each TLV and removes it; `use` returns false to end the walk
/// there.
template <typename Use>
void WalkTLVs(Collection<std::string>& list, Use use) {
    while (list.Count() > 0) {
        bool goOn = use(StrToHex(list.Item(1)), list.Item(2));
        list.Remove(1);
        list.Remove(1);
        if (!goOn) return;
    }
}

/// Where a service is: what stands before the first ":" and the number behind it. Without a ":" or a number
/// `port` stays as it was.
inline void SplitAddress(const std::string& address, std::string& host, std::int32_t& port) {
    auto parts = Split(address, ":", 2);
    host = parts.empty() ? std::string() : parts[0];
    if (parts.size() < 2) return;
    if (auto number = ToInt32(parts[1])) port = *number;
}

inline constexpr std::int32_t DefaultPort = 5190; ///< of a redirect or migration that names none

} // namespace halyard
