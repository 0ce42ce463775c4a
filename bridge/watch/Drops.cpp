#include "bridge/watch/Drops.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"

#include <utility>
#include <vector>

namespace halyard {

namespace {

/// First what is meant is written down: each drop changes what is true.
template <typename OfLine, typename OfBan>
std::size_t DropWhere(const TillerSock& control, const Truth& truth, OfLine line, OfBan ban) {
    std::vector<std::pair<std::int16_t, std::int64_t>> lines;
    std::vector<std::pair<std::int16_t, std::int32_t>> bans;
    for (const auto& [slot, room] : truth.Rooms()) {
        for (const auto& waiting : room.lines)
            if (line(waiting)) lines.emplace_back(slot, waiting.send.Number);
        for (const auto& waiting : room.bans)
            if (ban(waiting)) bans.emplace_back(slot, waiting.id);
    }
    std::size_t gone = 0;
    for (const auto& [slot, number] : lines)
        if (DropWaitingLine(control, slot, number)) ++gone;
    for (const auto& [slot, id] : bans)
        if (DropWaitingBan(control, slot, id)) ++gone;
    return gone;
}

} // namespace

bool DropWaitingLine(const TillerSock& control, std::int16_t room, std::int64_t number) {
    const auto joined = control.Room(room);
    return joined && joined->DropLine(number);
}

bool DropWaitingBan(const TillerSock& control, std::int16_t room, std::int32_t id) {
    const auto joined = control.Room(room);
    return joined && joined->DropBan(id);
}

std::size_t DropAllOfPerson(const TillerSock& control, const Truth& truth, const std::string& person) {
    return DropWhere(
        control, truth, [&](const WaitingLine& line) { return SameName(line.send.TheReplacement, person); },
        [&](const WaitingBan& ban) { return SameName(ban.name, person); });
}

std::size_t DropAllOfOp(const TillerSock& control, const Truth& truth, const std::string& op) {
    if (NormalizeName(op).empty()) return 0; // what has no op isn't all of one
    const auto his = [&](const auto& waiting) { return SameName(waiting.origin.op, op); };
    return DropWhere(control, truth, his, his);
}

} // namespace halyard
