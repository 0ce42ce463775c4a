#include "soak/watch/BanWatch.h"

#include <algorithm>
#include <utility>

namespace halyard {

void BanWatch::Sent(int id, Request request) {
    if (auto found = requests.find(id); found != requests.end())
        Excuse(found->second.room, found->second.user); // the ids have come round
    requests[id] = std::move(request);
}

bool BanWatch::Replied(int id, std::uint64_t stream) {
    auto found = requests.find(id);
    if (found == requests.end() || found->second.stream != stream) return false;
    excused[found->second.room].erase(found->second.user);
    answered.push_back(found->second);
    requests.erase(found);
    return true;
}

void BanWatch::Ended(std::uint64_t stream) {
    for (const auto& each : answered)
        if (each.stream == stream) Excuse(each.room, each.user);
    std::erase_if(requests, [&](const auto& each) {
        if (each.second.stream != stream) return false;
        Excuse(each.second.room, each.second.user);
        return true;
    });
}

void BanWatch::GiveUpBefore(std::int64_t moment) {
    std::erase_if(requests, [&](const auto& each) {
        if (each.second.since >= moment) return false;
        Excuse(each.second.room, each.second.user);
        return true;
    });
}

bool BanWatch::Waiting(const std::string& room) const {
    return std::any_of(requests.begin(), requests.end(),
                       [&](const auto& each) { return each.second.room == room; });
}

bool BanWatch::Excused(const std::string& room, const std::string& user) const {
    auto found = excused.find(room);
    return found != excused.end() && found->second.contains(user);
}

} // namespace halyard
