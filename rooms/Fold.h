#pragma once

// The fold: many waiting sends of one key become one send with a list of names.

#include "base/Collection.h"
#include "rooms/Msgs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

/// Template and names together stay within this many characters, so that a folded line fits into a room
/// message.
inline constexpr std::size_t FoldLimit = 210;

/// Takes the waiting sends of `strType` out of `queue` and joins their names by ", ". The template and the
/// other values are those of the entry read last. `templateLength` is the length of the caller's own
/// template, which counts against FoldLimit; what does not fit stays in the queue. With `sameOther` only
/// entries whose second value is that of the first one are taken. Nothing when no name was found.
/// `numbers` gets those of the sends taken out, in the order of the queue.
std::optional<Msgs> FoldWaitingSends(Collection<Msgs>& queue, const std::string& strType,
                                     std::size_t templateLength, bool sameOther,
                                     std::vector<std::int64_t>* numbers = nullptr);

} // namespace halyard
