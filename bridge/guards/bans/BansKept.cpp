#include "bridge/guards/bans/BansKept.h"

#include "base/Text.h"
#include "bridge/guards/GuardScope.h"
#include "platform/Platform.h"
#include "state/Options.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace halyard {

namespace {

constexpr int SecondTick = 1000;             // ms
constexpr int OwnerMissing = 0x48;           // a refusal's word
constexpr std::int64_t OwnerPause = 600'000; // ms until somebody else may have made the bot the owner
constexpr std::int64_t FirstPause = 1000;    // ms behind a request without an answer; then twice as much

std::int64_t PauseAfter(int unanswered) {
    return std::min(BansKept::LongestPause, FirstPause << std::clamp(unanswered, 0, 20));
}

} // namespace

BansKept::BansKept(Platform& platform, TillerSock& control, const Options& options)
    : platform(platform), control(control), options(options), timer(platform.NewTimer()) {
    timer->SetInterval(SecondTick);
    timer->onTick = [this] { Tick(); };
}

/// A request as it is made for the first time, or by this guard again.
KeptBan BansKept::Begun(std::int16_t room, BanKind kind, const std::string& name, const std::string& other) {
    if (asking && asking->name == name) return *asking;
    const auto place = places.find(room);
    KeptBan ban;
    ban.kind = kind;
    ban.name = name;
    ban.other = other;
    if (place != places.end()) ban.room = place->second.name, ban.exchange = place->second.exchange;
    ban.guard = Departure::BansOutliveRates;
    ban.since = platform.Milliseconds();
    const auto* scope = control.Tell().cause;
    const auto cause = scope ? scope->cause : Cause{};
    if (kind == BanKind::UnbanKick)
        ban.guard = cause.kind == CauseKind::Timer ? Departure::TimeBansAreKept : Departure::KicksEndAsKicks;
    if (cause.kind == CauseKind::Rule) {
        ban.rule = cause.rule;
        ban.entry = cause.entry;
    }
    return ban;
}

void BansKept::BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                         const std::string& other) {
    auto ban = Begun(room, kind, name, other);
    Overtake(ban);
    ban.lastId = id;
    open[id] = {std::move(ban), room};
}

/// What was wanted of the person before counts no more, but that it may have been done.
void BansKept::Overtake(KeptBan& newer) {
    for (auto& [id, each] : open)
        if (each.ban.IsOf(newer)) each.overtaken = true;
    kept.remove_if([&](const KeptBan& each) {
        if (!each.IsOf(newer)) return false;
        newer.wentOut = newer.wentOut || each.wentOut;
        return true;
    });
}

/// So whoever overtook it has something to take back, if it comes to nothing itself.
void BansKept::MayBeDone(const KeptBan& overtaken) {
    for (auto& each : kept)
        if (each.IsOf(overtaken)) each.wentOut = true;
    for (auto& [id, each] : open)
        if (each.ban.IsOf(overtaken)) each.ban.wentOut = true;
}

void BansKept::BanAsked(std::int16_t /*room*/, std::int32_t id, BanRequestKind /*kind*/,
                        const std::string& /*name*/) {
    const auto found = open.find(id);
    if (found == open.end()) return;
    // What waited in the room's queue may go behind what was wanted later: it has the last word then.
    Overtake(found->second.ban);
    found->second.overtaken = false;
    found->second.asked = platform.Milliseconds();
    timer->SetEnabled(true);
}

void BansKept::BanAnswered(std::int16_t /*room*/, std::int32_t id, BanVerdict verdict, int word) {
    if (verdict == BanVerdict::Accepted) // late
        kept.remove_if([id](const KeptBan& each) { return each.lastId == id; });
    const auto found = open.find(id);
    if (found == open.end()) return;
    const auto answered = std::move(found->second);
    open.erase(found);
    // Whoever is let in by nobody else is asked for until the bot owns the room again.
    if (verdict != BanVerdict::Refused || word != OwnerMissing || answered.ban.kind != BanKind::UnbanKick)
        return;
    Keep(answered);
    if (!kept.empty() && kept.back().lastId == id) kept.back().from = platform.Milliseconds() + OwnerPause;
}

void BansKept::BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                          const std::string& other, DropReason why) {
    Open lost;
    if (const auto found = open.find(id); id != 0 && found != open.end()) {
        lost = std::move(found->second);
        open.erase(found);
    } else {
        lost.ban = Begun(room, kind, name, other);
        lost.room = room;
        if (id == 0 && why != DropReason::Locked) Overtake(lost.ban); // a lock changes nothing
    }
    if (why == DropReason::NoRoom || why == DropReason::Rated || why == DropReason::Lost) Keep(lost);
}

void BansKept::RoomLeft(std::int16_t room, const std::string& /*name*/, const std::string& /*reason*/) {
    LoseAsked(room);
}

/// No answer comes any more to what went out in this room; 0: in none.
void BansKept::LoseAsked(std::int16_t room) {
    std::vector<Open> lost;
    std::erase_if(open, [&](const auto& each) {
        if ((room != 0 && each.second.room != room) || each.second.asked < 0) return false;
        lost.push_back(each.second);
        lost.back().ban.wentOut = true;
        return true;
    });
    if (control.ConfirmsElsewhere()) return; // whoever confirms sees to it
    std::sort(lost.begin(), lost.end(),
              [](const Open& one, const Open& other) { return one.asked < other.asked; });
    for (const auto& each : lost) Keep(each);
}

void BansKept::Keep(const Open& lost) {
    const auto& ban = lost.ban;
    if (lost.overtaken && ban.wentOut) MayBeDone(ban);
    if (lost.overtaken || ban.room.empty() || !control.Guarded(ban.guard, lost.room, ban.name)) return;
    kept.push_back(ban);
    if (kept.size() > Most) kept.pop_front();
    timer->SetEnabled(true);
}

void BansKept::Tick() {
    GiveUpUnanswered();
    AskAgain();
    if (kept.empty() && open.empty()) timer->SetEnabled(false);
}

void BansKept::GiveUpUnanswered() {
    if (control.ConfirmsElsewhere()) return; // that takes its time
    const auto since = platform.Milliseconds() - AnswerTime;
    std::vector<Open> lost;
    std::erase_if(open, [&](const auto& each) {
        if (each.second.asked < 0 || each.second.asked > since) return false;
        lost.push_back(each.second);
        auto& ban = lost.back().ban;
        ban.wentOut = true;
        ban.from = platform.Milliseconds() + PauseAfter(ban.unanswered++);
        return true;
    });
    for (const auto& each : lost) Keep(each);
}

/// One a second in each room, and none while others wait there for their turn.
void BansKept::AskAgain() {
    const auto now = platform.Milliseconds();
    std::set<std::int16_t> busy;
    auto waiting = std::exchange(kept, {});
    while (!waiting.empty()) {
        const auto each = waiting.begin();
        if (now - each->since > LongestKept || !control.Departs(each->guard)) {
            waiting.pop_front();
            continue;
        }
        std::shared_ptr<Chats> there;
        for (const auto& room : control.Chat)
            if (room->Exchange == each->exchange && !room->Cookie.empty() &&
                SameName(room->ChatName, each->room))
                there = room;
        const bool may = there && !there->IsRated(1) && !there->JoinTimerEnabled() &&
                         there->BanQueue.Count() == 0 && now >= each->from &&
                         !busy.contains(there->ChatIndex);
        if (!may) {
            kept.splice(kept.end(), waiting, each);
            continue;
        }
        const auto ban = std::move(*each);
        waiting.pop_front();
        if (Ask(ban, *there)) busy.insert(there->ChatIndex);
    }
}

bool BansKept::Ask(KeptBan ban, const Chats& room) {
    const bool isHere = !room.PeopleHere.Item(NormalizeName(ban.name)).empty();
    if (!IsReadmission(ban.kind)) {
        const bool isWanted = IsStillWanted(ban, options) && (ban.kind != BanKind::Kick || isHere);
        const bool isDone = ban.kind != BanKind::TimeBan && ban.kind != BanKind::Kick && IsOnList(ban);
        if (isDone || (!isWanted && !ban.wentOut)) return false;
        // It may have been done before, and then nobody else would take it back.
        if (!isWanted) ban.kind = BanKind::UnbanKick;
    }
    const GuardScope scope(control, ban.guard, room.ChatIndex, ban.name);
    asking = &ban;
    if (IsReadmission(ban.kind))
        control.UnbanUser(ban.name, ban.kind, room.ChatIndex, ban.other);
    else
        control.BanUser(ban.name, ban.kind, room.ChatIndex, ban.other);
    asking = nullptr;
    return true;
}

bool BansKept::IsOnList(const KeptBan& ban) const {
    for (const auto& list : control.EjectLists)
        if (list->IsOf(ban.room, ban.exchange))
            return !list->GetEjects().Item(NormalizeName(ban.name)).empty();
    return false;
}

} // namespace halyard
