#pragma once

// Names that look alike. A name's skeleton is what is left of it when digits, accents and letters that pass
// for another are folded; two names with the same skeleton are hard to tell apart, and so are two whose
// skeletons are one edit apart. The ledger keeps the skeleton of each person, in an index.

#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// The skeleton of a name as NormalizeName gives it (Windows-1252): lower case, blanks, points and strokes
/// left out, "0" as "o", "1" and "i" as "l", "rn" as "m", "vv" as "w", accents taken off. What has no letter
/// to pass for stays. The same for the skeleton of a skeleton.
std::string Skeleton(std::string_view key);

/// Every text of small letters, digits and what `skeleton` holds itself that is one letter more, one fewer or
/// one other than it. None for one of more than 40 characters: the list grows with the square of its length.
std::vector<std::string> OneEditFrom(std::string_view skeleton);

} // namespace halyard
