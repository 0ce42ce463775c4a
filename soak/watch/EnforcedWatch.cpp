#include "soak/watch/EnforcedWatch.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "practice/PracticeNetwork.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace halyard {

namespace {

// Milliseconds.
constexpr std::int64_t lookEvery = 1000;
constexpr std::int64_t longestStay = 10000;
/// From a session's end to the list, whose answer is under way.
constexpr std::int64_t longestListing = 10000;
constexpr std::size_t shortLine = 3; // of those who wait to be signed off
constexpr const char* botsName = "harbourbot";
constexpr std::string_view ending = "DELETE /session/";

} // namespace

void EnforcedWatch::Asked(const std::string& room, const std::string& name, bool ban, const std::string& kind,
                          std::int64_t now) {
    const Place place{room, name};
    const bool kick = kind == "kick";
    if (!kick) lastAsked[place] = now;
    next = std::max(next, now + 1); // what follows comes at once, but not within this event
    if (!ban) {
        if (ended.erase(place) > 0) lifted[place] = now;
        if (!asked.contains(place)) unclear.erase(place);
        return;
    }
    const auto before = asked.find(place);
    if (before != asked.end() && before->second != kick)
        unclear.insert(place);
    else if (before == asked.end())
        unclear.erase(place);
    asked[place] = kick;
}

void EnforcedWatch::Happened(const PracticeEvent& event) {
    if (event.what == "leaves") {
        staying.erase({NormalizeName(event.room), NormalizeName(event.who)});
        if (SameName(event.who, botsName)) Forgive(event.milliseconds, NormalizeName(event.room));
    }
    if (!event.what.starts_with(ending)) return;
    const auto name = NormalizeName(event.what.substr(ending.size()));
    signedOff[name] = event.milliseconds;
    for (auto at = asked.begin(); at != asked.end();) {
        if (at->first.second != name) {
            ++at;
            continue;
        }
        at->second ? void(ended.erase(at->first)) : void(ended.insert(at->first));
        at = asked.erase(at);
    }
}

/// What is under way for a room that the bot has left comes to nothing. For every room: so may what was under
/// way while answers were lost.
void EnforcedWatch::Forgive(std::int64_t now, const std::string& room) {
    const auto listed = Listed();
    std::erase_if(ended, [&](const auto& place) {
        return (room.empty() || place.first == room) && !listed.contains(place);
    });
    for (const auto& [place, moment] : lifted) // the room was lost before it counted
        if (place.first == room && now - moment < 2000 && listed.contains(place)) ended.insert(place);
    std::erase_if(asked, [&](const auto& each) { return room.empty() || each.first.first == room; });
}

std::set<EnforcedWatch::Place> EnforcedWatch::Listed() const {
    std::set<Place> listed;
    for (const auto& list : control.EjectLists)
        for (const auto& name : list->GetEjects())
            listed.emplace(NormalizeName(list->ChatName), NormalizeName(name));
    return listed;
}

void EnforcedWatch::ListsLoaded() { ended = Listed(); }

std::string EnforcedWatch::Lasting(std::map<Place, std::int64_t>& since, const std::set<Place>& now,
                                   std::int64_t moment, std::int64_t longest, const std::string& what) const {
    std::erase_if(since, [&](const auto& each) { return !now.contains(each.first); });
    for (const auto& place : now)
        if (moment - since.try_emplace(place, moment).first->second > longest)
            return place.second + what + place.first;
    return {};
}

/// A request may wait longer than one to let in again that was made after it, as in a room's ban pause.
bool EnforcedWatch::CameLater(const Place& place) const {
    const auto asked = lastAsked.find(place);
    const auto off = signedOff.find(place.second);
    return asked != lastAsked.end() && off != signedOff.end() && off->second > asked->second;
}

std::string EnforcedWatch::Check(std::int64_t now) {
    if (now < next) return {};
    next = now + lookEvery;
    const auto listed = Listed();
    std::set<Place> strange, lost, inside;
    for (const auto& place : listed) {
        if (CameLater(place)) ended.insert(place);
        if (!ended.contains(place) && Counts(place)) strange.insert(place);
    }
    auto wrong = Lasting(strangers, strange, now, 2000, " is on a list, and nobody put them out of ");
    if (!wrong.empty() || now < trusted) return wrong;
    if (std::exchange(doubted, false)) Forgive(now);
    for (const auto& room : control.Chat) {
        // Since a list file was loaded that doesn't name it, the room has no list: required.
        if (room->EjectListIndex != 0 && !control.EjectLists.Item(room->EjectListIndex)) continue;
        const auto name = NormalizeName(room->ChatName);
        for (auto at = ended.lower_bound({name, ""}); at != ended.end() && at->first == name; ++at)
            if (!listed.contains(*at) && Counts(*at)) lost.insert(*at);
    }
    if (ask.waiting() > shortLine) staying.clear(); // everybody has their turn
    for (const auto& place : listed)
        if (!ask.spared(place.second) && network.IsInRoom(place.first, place.second) &&
            network.IsInRoom(place.first, botsName))
            inside.insert(place);
    auto missed = Lasting(missing, lost, now, longestListing, " was put out, and is on no list of ");
    return missed.empty() ? Lasting(staying, inside, now, longestStay, " is listed, and stays in ") : missed;
}

} // namespace halyard
