#pragma once

#include <cstdint>
#include <string>

namespace halyard {

/// One send that waits in a room's MsgQueue for its pause to end.
struct Msgs {
    std::string TheType;           ///< chatsend key, such as "banned"
    std::string TheChar;           ///< the placeholder to be replaced, normally "%p"
    std::string TheReplacement;    ///< what replaces it, normally a screenname
    std::string TheMessage;        ///< the template text
    std::string TheOther;          ///< second value, for "%d" or "%s"
    std::string TheMsgType;        ///< "msg1" or "msg2"
    std::int16_t intChatIndex = 0; ///< carried, not used to send
    std::int64_t Number = 0;       ///< by which the news name it; 0 until it waits
};

} // namespace halyard
