#include "bridge/ledger/Requests.h"

namespace halyard {

Request* Requests::Find(std::int32_t id) {
    const auto found = byId.find(id);
    return found == byId.end() ? nullptr : &found->second;
}

void Requests::Answered(std::int32_t id) {
    if (auto* request = Find(id)) request->answered = true;
    answered.push_back(id);
    if (answered.size() <= MostAnswered) return;
    const auto* oldest = Find(answered.front());
    if (oldest && oldest->answered) Remove(answered.front());
    answered.pop_front();
}

void Requests::EndRoom(std::int16_t room, const std::function<void(std::int32_t, const Request&)>& each) {
    std::erase_if(byId, [&](const auto& entry) {
        if (room != 0 && entry.second.room != room) return false;
        if (!entry.second.answered) each(entry.first, entry.second);
        return true;
    });
}

} // namespace halyard
