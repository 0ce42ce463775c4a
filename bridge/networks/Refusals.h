#pragma once

// What a service means when it refuses, limits or disconnects, as a sentence and what to do about it.

#include <string>
#include <vector>

namespace halyard {

enum class RefusalKind {
    SignOn, ///< TLV 0008 of the sign-on's answer
    Error,  ///< the word of an error answer (xxxx 0001), such as that of a navigation service
    Room,   ///< TLV 0008 behind such a word: why a room can't be made or entered
    Rate,   ///< the code of a rate notice (0001 000A)
    SignOff ///< TLV 0009 of a channel 4 frame on the main connection; -1 where a connection ended without one
};

struct Refusal {
    RefusalKind kind;
    int code;
    const char* sentence;
    const char* advice;
};

/// Every refusal that has words, by kind and then by code.
const std::vector<Refusal>& Refusals();

/// Null for a code that has no words.
const Refusal* FindRefusal(RefusalKind kind, int code);

/// Sentence and advice. Of a code that has none: that it isn't known, with its number.
std::string RefusalText(RefusalKind kind, int code);

/// What a kind is called in a table, such as "Sign-on".
const char* RefusalKindText(RefusalKind kind);

} // namespace halyard
