#pragma once

// Where things stand in a frame that carries a SNAC. Positions count from 1: the FLAP header is 1 to 6, the
// SNAC's family and subtype 7 to 10, its flags 11 and 12, its request id 13 to 16, its body begins at 17.

#include "oscar/wire/ModOscarFunctions.h"

#include <string>

namespace halyard {

inline constexpr std::size_t ChannelAt = 2;
inline constexpr std::size_t KeyAt = 7;
inline constexpr std::size_t FlagsAt = 11;
inline constexpr std::size_t RequestIDLowAt = 15; ///< the half by which requests are known
inline constexpr std::size_t BodyAt = 17;

/// True when the service put a prefix before the body: flags 8000.
inline bool IsFlagged(const std::string& strPacket) { return Mid(strPacket, FlagsAt, 1) == ByteToStr(128); }

/// What stands behind a flagged frame's prefix: a length of 2 bytes, and as many bytes. Empty when there is
/// no more.
inline std::string BodyBehindPrefix(const std::string& strPacket) {
    return Mid(strPacket, BodyAt + 2 + StrToWord(Mid(strPacket, BodyAt, 2)).value_or(0));
}

} // namespace halyard
