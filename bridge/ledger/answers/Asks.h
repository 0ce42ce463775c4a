#pragma once

// What an op asks the bridge by instant message: "why NAME", "last [N]", "undo [NAME or #N]", "note NAME
// TEXT", "health". Texts are Windows-1252.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

struct Ask {
    static constexpr int MostActs = 5;

    enum class What { Why, Last, Undo, Note, Health };
    What what = What::Health;
    std::string name;     ///< as it was written; empty where none was
    std::int64_t act = 0; ///< of "undo #N", 0 without
    int count = 1;        ///< of "last N", 1 to MostActs
    std::string text;     ///< of a note, at most 1,000 characters
};

/// Nothing for a message that begins with none of the words, or doesn't go on as they do. HTML is taken out
/// first; upper and lower case are alike; a name with blanks stands in quotes.
std::optional<Ask> ReadAsk(const std::string& message);

} // namespace halyard
