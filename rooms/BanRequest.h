#pragma once

// A request to the service to ban somebody, or to let them in again (family 000E, subtypes 0024 and 0025):
// why it is made, what becomes of it, and the record of five fields by which it is known until its reply
// comes.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

/// Why a request is made. What a confirmed one leads to stands in `oscar/BanWire.cpp`.
enum class BanKind {
    Ban,       ///< an op's "ban", or the operator's
    Unban,     ///< an op's "unban", or the operator's
    UnbanKick, ///< lets in again who was kicked, or whose time ban is over
    Kick,      ///< a ban that is lifted as soon as it is confirmed
    Autoban,   ///< a name on the autoban list came in
    Autoword,  ///< an autoword was said
    Ghost,     ///< an op's "gban"
    AutoGhost, ///< somebody spoke who isn't in the room's list
    Char,      ///< a name as long as is forbidden
    ICQ,       ///< a name of digits alone
    TimeBan,   ///< an op's "tban": it ends by itself
};

/// What became of a request.
enum class BanOutcome {
    Asked,   ///< it went out
    Waiting, ///< it stands in the room's queue until the ban pause is over
    Dropped, ///< there is no such room, or its rate class 1 is limited
};

/// The word of the kind in records, such as "ab".
const char* WordOf(BanKind kind);
/// The kind of a record's first field; nothing for another word.
std::optional<BanKind> BanKindOf(std::string_view word);
/// "word:socket slot:request id:user:other", as BanQueue and RequestIDs hold it.
std::string BanRecord(BanKind kind, std::int16_t intChatIndex, std::int32_t lngRequestID,
                      const std::string& strUser, const std::string& strOther);

} // namespace halyard
