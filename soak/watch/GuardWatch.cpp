#include "soak/watch/GuardWatch.h"

#include "base/Text.h"
#include "practice/PracticeNetwork.h"
#include "rooms/TimeBan.h"
#include "soak/Time.h"
#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::int64_t LookEvery = 10 * second;
/// Nobody waits longer than half a minute for an answer, and a minute more until it is asked for again.
constexpr std::int64_t AfterLostReply = (30 + 60 + 20) * second;
constexpr std::int64_t NextChance = 3 * second;
constexpr std::int64_t LongestWaiting = 120 * second;

} // namespace

GuardWatch::GuardWatch(PracticeNetwork& network, frmMain& window, Bridge& bridge)
    : network(network), window(window), bridge(bridge) {
    bridge.heard.Add(*this);
}

GuardWatch::~GuardWatch() { bridge.heard.Remove(*this); }

std::shared_ptr<Chats> GuardWatch::Open(const std::string& room) const {
    for (const auto& each : window.Control().Chat)
        if (!each->Cookie.empty() && !each->IsRated(1) && NormalizeName(each->ChatName) == room) return each;
    return nullptr;
}

void GuardWatch::TimeBanTold(TimeBanStep step, const std::string& record) {
    const auto ban = ReadTimeBan(record);
    const Place place{NormalizeName(ban.room), NormalizeName(ban.user)};
    const auto moment = window.Context().platform.Milliseconds();
    lifted.erase(place);
    overdue.erase(place);
    if (step == TimeBanStep::Set) {
        due[place] = moment + ban.secondsLeft * second;
        return;
    }
    const auto running = due.find(place);
    if (running == due.end()) return Violate("a time ban has ended that nobody set: " + record);
    if (step == TimeBanStep::Over) {
        ++ended;
        waited += ban.overdue ? 1 : 0;
        // The clock of all time bans may have been running already, and its first tick comes early then.
        if (moment < running->second - second) Violate("a time ban has ended early: " + record);
        lifted[place] = moment;
    }
    due.erase(running);
}

void GuardWatch::BanAsked(std::int16_t room, std::int32_t /*id*/, BanRequestKind kind,
                          const std::string& name) {
    const auto there = window.Control().Room(room);
    if (!there) return;
    const Place place{NormalizeName(there->ChatName), NormalizeName(name)};
    asked[place] = window.Context().platform.Milliseconds();
    excused.erase(place);
    if (kind == BanRequestKind::Ban) lifted.erase(place);
}

std::string GuardWatch::Check(std::int64_t moment) {
    now = moment;
    if (now < nextLook || !wrong.empty()) return wrong;
    nextLook = now + LookEvery;
    CheckTimeBans();
    CheckLifted();
    std::erase_if(unlisted, [&](const auto& each) { return !Open(each.first.first); });
    for (const auto& room : window.Control().Chat) CheckBanned(*room);
    CheckKept();
    CheckRoomList();
    std::erase_if(asked, [&](const auto& each) { return now - each.second > hour; });
    return wrong;
}

void GuardWatch::TooLong(Moments& since, const Place& place, std::int64_t limit, const std::string& what) {
    const auto began = since.try_emplace(place, now).first->second;
    if (now - began > limit) Violate(what + ": " + place.second + " in " + place.first);
}

void GuardWatch::CheckTimeBans() {
    const auto& records = window.Control().TimeBans;
    if (records.Count() != due.size())
        Violate(std::to_string(due.size()) + " time bans were set, and " + std::to_string(records.Count()) +
                " run");
    for (const auto& [place, end] : due) {
        if (now <= end + NextChance || !Open(place.first))
            overdue.erase(place);
        else
            TooLong(overdue, place, LookEvery + NextChance, "a time ban has outlived its time");
    }
}

void GuardWatch::CheckLifted() {
    std::erase_if(lifted,
                  [&](const auto& each) { return !network.IsBanned(each.first.first, each.first.second); });
    for (auto& [place, since] : lifted) {
        if (!Open(place.first)) since = now;
        if (const auto last = asked.find(place); last != asked.end()) since = std::max(since, last->second);
        if (now - since > AfterLostReply)
            Violate("a time ban has ended, and nobody was let in: " + place.second + " in " + place.first);
    }
}

std::set<std::string> GuardWatch::Listed(const Chats& room) const {
    std::set<std::string> names;
    for (const auto& list : window.Control().EjectLists)
        if (list->IsOf(room.ChatName, room.Exchange))
            for (const auto& name : list->GetEjects()) names.insert(name);
    return names;
}

void GuardWatch::CheckBanned(const Chats& room) {
    const auto name = NormalizeName(room.ChatName);
    if (Open(name).get() != &room) return;
    if (room.BanQueue.Count() > 0) {
        std::erase_if(unlisted, [&](const auto& each) { return each.first.first == name; });
        return;
    }
    const auto bans = network.Bans(name);
    const auto listed = Listed(room);
    std::set<std::string> out;
    for (const auto& each : bans)
        if (const auto user = NormalizeName(each); !listed.contains(user)) out.insert(user);
    std::erase_if(unlisted, [&](const auto& each) {
        return each.first.first == name && !out.contains(each.first.second);
    });
    for (const auto& user : out) {
        const Place place{name, user};
        if (excused.contains(place)) continue;
        if (const auto last = asked.find(place); last != asked.end())
            if (auto& since = unlisted.try_emplace(place, now).first->second; since < last->second)
                since = last->second;
        TooLong(unlisted, place, AfterLostReply, "somebody is out who is on no list");
    }
}

void GuardWatch::CheckKept() {
    Moments still;
    for (const auto& ban : bridge.guards.bans.kept.Waiting()) {
        const auto room = Open(NormalizeName(ban.room));
        if (!room || room->BanQueue.Count() > 0 || ban.from > now) continue;
        const Place place{NormalizeName(ban.room), NormalizeName(ban.name)};
        const auto before = kept.find(place);
        still[place] = before == kept.end() ? now : before->second;
        TooLong(still, place, LongestWaiting, "a ban waits though its room is free");
    }
    kept = std::move(still);
}

void GuardWatch::CheckRoomList() {
    std::set<std::string> inside;
    std::set<std::string> listed;
    for (const auto& room : window.Control().Chat)
        if (!room->Cookie.empty()) inside.insert(NormalizeName(room->ChatName));
    const auto& box = window.chats.lstChats;
    for (int line = 0; line < box.ListCount(); ++line) listed.insert(NormalizeName(box.List(line)));
    if (inside == listed) return shown.clear();
    TooLong(shown, {"", ""}, 0, "the operator's list of rooms isn't true");
}

void GuardWatch::ListsLoaded(const std::vector<std::string>& rooms) {
    for (const auto& room : rooms)
        for (const auto& user : network.Bans(room)) excused.insert({room, NormalizeName(user)});
}

} // namespace halyard
