#pragma once

// The 124 editable lines of the bot. The position is a line's identity: callers name lines by it.

#include "base/Collection.h"

#include <cstddef>
#include <string>

namespace halyard {

inline constexpr std::size_t ChatSendCount = 124;
inline constexpr std::size_t ChatSendMaxLength = 200; ///< of an edited line, in characters

/// Empties `chatSends` and fills it with the default lines, in Windows-1252.
void DefaultChatSendTexts(Collection<std::string>& chatSends);

} // namespace halyard
