#pragma once

// Taking out of the rooms' queues what the operator doesn't want to go any more. Whoever calls says by the
// open cause that it is his hand. Each entry tells of itself: LineDropped, or BanDropped, by hand.

#include "bridge/watch/Truth.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace halyard {

class TillerSock;

/// By socket slot and the number that the entry waits under: a line's Msgs::Number, a ban's request id. False
/// when none waits there.
bool DropWaitingLine(const TillerSock& control, std::int16_t room, std::int64_t number);
bool DropWaitingBan(const TillerSock& control, std::int16_t room, std::int32_t id);
/// All lines that name this person and all bans of theirs, in every room; how many went. Names count without
/// case and blanks.
std::size_t DropAllOfPerson(const TillerSock& control, const Truth& truth, const std::string& person);
/// All that this op has brought about.
std::size_t DropAllOfOp(const TillerSock& control, const Truth& truth, const std::string& op);

} // namespace halyard
