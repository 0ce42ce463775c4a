#pragma once

// What the operator wants of the ledger: whether it is kept, how long, and whether anybody is answered from
// it.

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

struct LedgerTerms {
    static constexpr int LongestDays = 36500;
    static constexpr std::size_t MostRefused = 1000;

    bool keep = true;
    bool evidence = true;                ///< a person's last lines go with an act upon them
    int textDays = 180;                  ///< texts of lines go after so many days; 0 is never
    int actDays = 0;                     ///< acts go after so many days; 0 is never
    bool answers = false;                ///< ops are answered by instant message
    bool appeals = false;                ///< so are those who stand on an eject list
    std::string whomToAsk;               ///< the operator's own line in those answers; Windows-1252
    std::vector<std::string> noAppealOf; ///< normalised names that get no answer

    bool operator==(const LedgerTerms&) const = default;
};

} // namespace halyard
