#pragma once

// The keys by which a caller names the purpose of a line. The key alone decides how the line is paced and
// filled in.

#include <string_view>

namespace halyard {

enum class SendGroup {
    Unknown,         ///< no such key: the line is dropped without a word
    MergeSameOther,  ///< 8.2 s apart; waiting names with the same second value become one line
    Merge,           ///< 8.2 s apart; all waiting names become one line
    OneByOne,        ///< 8.5 s apart, one waiting line at a time
    DropWhilePaused, ///< 11 s apart; what comes in between is lost
    Unpaced,         ///< at once
};

/// The group of a key; keys are case-sensitive.
SendGroup SendGroupOf(std::string_view strType);

/// True for the keys of the Merge group whose "%d" is the number of bans in the room.
bool CountsBans(std::string_view strType);

} // namespace halyard
