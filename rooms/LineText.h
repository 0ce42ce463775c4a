#pragma once

// The line that a waiting or fresh send makes.

#include "base/Text.h"
#include "rooms/Msgs.h"

#include <string>
#include <string_view>

namespace halyard {

/// Its template with both placeholders filled in; `otherMark` is "%d" or "%s".
inline std::string FillIn(const Msgs& send, std::string_view otherMark) {
    return Replace(Replace(send.TheMessage, send.TheChar, send.TheReplacement), otherMark, send.TheOther);
}

} // namespace halyard
