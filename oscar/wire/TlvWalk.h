#pragma once

// The handlers' way through a parsed TLV list: type by type, each taken off the front once it was looked at.

#include "base/Collection.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <cstdint>
#include <string>
#include <string_view>

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

/// Calls `use(the type's bytes, value)` for each TLV at the front of `input`, at most 101, as ParseTLVs takes
/// them, but without a list: both lie in `input`. `use` returns false to end the walk there.
template <typename Use>
void EachTLV(std::string_view input, Use use) {
    if (input == std::string_view("\0\0", 2)) {
        use(std::string_view(), std::string_view());
        return;
    }
    for (int taken = 0; taken < 101 && !input.empty(); ++taken) {
        const auto tlv = FirstTLV(input);
        if (!use(tlv.type, tlv.value)) return;
        input.remove_prefix(tlv.size);
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
