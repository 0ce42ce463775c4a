#include "surface/bridge/watch/FootWords.h"

#include "base/Text.h"
#include "bridge/watch/Truth.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t ManyWait = 20; // lines and bans that wait in all rooms

std::string NumberOf(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

FootField ConnectionField(const Truth& truth, std::int64_t now) {
    const auto& account = truth.Account();
    switch (account.stage) {
    case Stage::Off: return {FootField::Level::Plain, "Off line"};
    case Stage::Underway:
        if (account.IsStuck(now)) return {FootField::Level::Bad, "Sign-on stuck"};
        return {FootField::Level::Care, "Signing on"};
    case Stage::On:
        if (account.IsStuck(now) || truth.Main().IsStuck(now)) return {FootField::Level::Bad, "No answer"};
        return {FootField::Level::Good, "Online"};
    case Stage::ComingBack: return {FootField::Level::Bad, "Lost, coming back"};
    case Stage::Lost: return {FootField::Level::Bad, "Lost"};
    case Stage::Refused: return {FootField::Level::Bad, "Refused"};
    }
    return {};
}

FootField RoomsField(const Truth& truth, std::int64_t now) {
    std::size_t in = 0, out = 0, stuck = 0;
    for (const auto& [slot, room] : truth.Rooms()) {
        if (room.standing.IsStuck(now)) ++stuck;
        if (room.standing.stage == Stage::On) ++in;
    }
    for (const auto& room : truth.Absent())
        if (room.standing.IsStuck(now))
            ++stuck;
        else if (room.standing.stage != Stage::Underway)
            ++out;
    for (const auto& room : truth.Awaited())
        if (!IsAbsent(truth, room)) ++out;
    if (in == 0 && out == 0 && stuck == 0) return {FootField::Level::Plain, "No room"};
    auto words = NumberOf(in, "room", "rooms");
    if (out > 0) words += ", " + std::to_string(out) + " lost";
    if (stuck > 0) words += ", " + std::to_string(stuck) + " stuck";
    return {out > 0 || stuck > 0 ? FootField::Level::Bad : FootField::Level::Good, words};
}

FootField RatesField(const Truth& truth) {
    std::size_t limited = 0, rooms = 0;
    std::string name;
    for (const auto& [slot, room] : truth.Rooms()) {
        ++rooms;
        bool here = false;
        for (const bool rated : room.rated) here = here || rated;
        if (!here) continue;
        ++limited;
        name = room.name;
    }
    if (limited == 0) return {rooms == 0 ? FootField::Level::Plain : FootField::Level::Good, "Rates free"};
    return {FootField::Level::Care,
            limited == 1 ? "Limited: " + name : std::to_string(limited) + " rooms limited"};
}

FootField WaitingField(const Truth& truth) {
    std::size_t lines = 0, bans = 0;
    for (const auto& [slot, room] : truth.Rooms()) lines += room.lines.size(), bans += room.bans.size();
    if (lines + bans == 0) return {FootField::Level::Plain, "Nothing waits"};
    std::string words;
    if (lines > 0) words = NumberOf(lines, "line", "lines");
    if (bans > 0) words += (words.empty() ? "" : ", ") + NumberOf(bans, "ban", "bans");
    return {lines + bans > ManyWait ? FootField::Level::Care : FootField::Level::Good,
            words + " wait" + (lines + bans == 1 ? "s" : "")};
}

} // namespace

std::array<FootField, FootFields> FootWords(const Truth& truth, std::int64_t now, LedgerState ledger,
                                            std::size_t alarms) {
    const FootField kept = ledger == LedgerState::Kept ? FootField{FootField::Level::Good, "Ledger kept"}
                           : ledger == LedgerState::None
                               ? FootField{FootField::Level::Plain, "No ledger"}
                               : FootField{FootField::Level::Bad, "Ledger not written"};
    return {ConnectionField(truth, now),
            RoomsField(truth, now),
            RatesField(truth),
            WaitingField(truth),
            kept,
            alarms == 0 ? FootField{FootField::Level::Plain, "No alarm"}
                        : FootField{FootField::Level::Bad, NumberOf(alarms, "alarm", "alarms")}};
}

bool IsAbsent(const Truth& truth, const AwaitedRoom& room) {
    return std::ranges::any_of(truth.Absent(), [&](const AbsentRoom& other) {
        return other.exchange == room.exchange && SameName(other.name, room.name);
    });
}

std::int64_t NextStuck(const Truth& truth, std::int64_t now) {
    std::int64_t next = -1;
    const auto look = [&](const StageTruth& standing) {
        if (standing.stuckAt > now && (next < 0 || standing.stuckAt < next)) next = standing.stuckAt;
    };
    look(truth.Account());
    look(truth.Main());
    look(truth.Navigation());
    for (const auto& [slot, room] : truth.Rooms()) look(room.standing);
    for (const auto& room : truth.Absent()) look(room.standing);
    return next;
}

} // namespace halyard
