#pragma once

// A request to the service to ban somebody, or to let them in again (family 000E, subtypes 0024 and 0025):
// why it is made, what becomes of it, and the record of five fields by which it is known until its reply
// comes.

#include "base/BanKind.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

/// The word of the kind in records, such as "ab".
const char* WordOf(BanKind kind);
/// The kind of a record's first field; nothing for another word.
std::optional<BanKind> BanKindOf(std::string_view word);
/// "word:socket slot:request id:user:other", as BanQueue and RequestIDs hold it.
std::string BanRecord(BanKind kind, std::int16_t intChatIndex, std::int32_t lngRequestID,
                      const std::string& strUser, const std::string& strOther);

/// A record in its parts.
struct BanRecordFields {
    std::optional<BanKind> kind; ///< nothing for another word
    std::optional<std::int16_t> intChatIndex;
    std::string strRequestID, strUser, strOther;
};
/// Nothing for an empty record.
std::optional<BanRecordFields> ReadBanRecord(const std::string& record);

} // namespace halyard
