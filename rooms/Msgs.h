#pragma once

#include <cstdint>
#include <string>

namespace halyard {

/// One send that waits in a room for its pause to end: in its MsgQueue, or among its answers.
struct Msgs {
    std::string TheType;           ///< chatsend key, such as "banned"
    std::string TheChar;           ///< the placeholder to be replaced, normally "%p"
    std::string TheReplacement;    ///< what replaces it, normally a screenname
    std::string TheMessage;        ///< the template text
    std::string TheOther;          ///< second value, for "%d" or "%s"
    std::string TheMsgType;        ///< "msg1", "msg2", or "msg3" of an answer
    std::int16_t intChatIndex = 0; ///< carried, not used to send
    std::int64_t Number = 0;       ///< by which the news name it; 0 until it waits
};

} // namespace halyard
