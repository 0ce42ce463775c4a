#include "bridge/watch/alarms/CountAlarms.h"

#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/AlarmOrders.h"
#include "bridge/watch/alarms/RoomAlarms.h"
#include "platform/Platform.h"

namespace halyard {

namespace {

// Words of a refused request.
constexpr int BotIsNoOwner = 0x48;
constexpr int TargetIsOwner = 0x49;

/// A class that doesn't wait drops lines as it should, and the operator knows what he cleared.
bool IsLoss(LineDrop why) {
    return why == LineDrop::Rated || why == LineDrop::Overtaken || why == LineDrop::TooOld ||
           why == LineDrop::TooMany;
}

std::string DropWords(LineDrop why) {
    switch (why) {
    case LineDrop::Rated: return "the room's lines are limited.";
    case LineDrop::Overtaken: return "a line behind it was said first.";
    case LineDrop::TooOld: return "it waited too long.";
    default: return "too many waited.";
    }
}

} // namespace

void CountAlarms::RateLevel(std::int16_t room, int classId, bool rated, int /*milliseconds*/) {
    if (rated) Count(AlarmKind::Rated, room, "The last limit was of class " + std::to_string(classId) + ".");
}

void CountAlarms::LineDropped(std::int16_t room, const Msgs& /*line*/, LineDrop why) {
    if (IsLoss(why)) Count(AlarmKind::LinesDropped, room, "Of the last: " + DropWords(why));
}

void CountAlarms::BanAnswered(std::int16_t room, std::int32_t /*id*/, BanVerdict verdict, int word) {
    if (enforcedElsewhere || verdict == BanVerdict::Accepted || word == TargetIsOwner) return;
    if (verdict == BanVerdict::NotEnforced)
        return Count(AlarmKind::BansRefused, room, "The network enforces none there.");
    if (word == BotIsNoOwner) return Count(AlarmKind::BansRefused, room, "The bot doesn't own the room.");
    Count(AlarmKind::BansRefused, room, "The service gives the code " + std::to_string(word) + ".");
}

void CountAlarms::SignedOff() {
    for (const auto& [key, tally] : tallies)
        if (IsOrderedByHand(telling))
            book.Withdraw(key.first, key.second);
        else
            book.End(key.first, key.second, "The bot is signed off.");
    tallies.clear();
}

std::int64_t CountAlarms::SpanOf(AlarmKind kind) const {
    return std::int64_t{book.Terms().Of(kind).minutes} * 60'000;
}

void CountAlarms::Count(AlarmKind kind, std::int16_t room, const std::string& words) {
    const Key key{kind, rooms.NameOf(room)};
    auto& tally = tallies[key];
    const auto now = platform.Milliseconds();
    tally.Add(now);
    const auto& term = book.Terms().Of(kind);
    const auto count = tally.Count(now, SpanOf(kind));
    if (count > static_cast<std::size_t>(term.limit))
        book.Raise(kind, key.second,
                   std::to_string(count) + " in " + std::to_string(term.minutes) + " minutes. " + words);
}

void CountAlarms::Look() {
    for (auto at = tallies.begin(); at != tallies.end();) {
        const auto& [kind, room] = at->first;
        if (at->second.Count(platform.Milliseconds(), SpanOf(kind)) > 0) {
            ++at;
            continue;
        }
        book.End(kind, room, "None for " + std::to_string(book.Terms().Of(kind).minutes) + " minutes.");
        at = tallies.erase(at);
    }
}

} // namespace halyard
