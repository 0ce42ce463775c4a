#include "bridge/networks/enforcement/AddressWatch.h"

#include "base/Text.h"
#include "bridge/networks/enforcement/ManagementWords.h"
#include "oscar/networks/Reach.h"

#include <utility>

namespace halyard {

void AddressWatch::Look(const RoomRef& room, const std::string& name) {
    if (!CanBeManaged(name)) return;
    ManagementCall call{.rank = ManagementCall::Rank::Looks, .method = "GET", .path = SessionPath(name)};
    call.done = [this, room, name](const HttpAnswer& answer) {
        if (!answer.IsGood()) return;
        for (const auto& address : SessionAddresses(answer.body, name)) Compare(room, name, address);
    };
    const bool taken = line.Add(std::move(call));
    if (!taken && !std::exchange(toldFull, true))
        hooks.tell("too many people came at once: not everyone's address was looked at");
    if (taken) toldFull = false;
}

void AddressWatch::Compare(const RoomRef& room, const std::string& name, const std::string& address) {
    if (ReachOf(address) != Reach::Public) return;
    const auto hash = record.HashOf(address);
    if (hash.empty()) return;
    auto others = record.NamesFrom(hash, at);
    std::erase_if(others, [&](const auto& other) { return SameName(other, name); });
    record.AddSeen(name, at, hash);
    if (others.size() >= MostNames) return;
    for (const auto& other : others) {
        if (!hooks.isListed(room, other)) continue;
        hooks.tell(name + " entered from where " + other + " was banned");
        hooks.found(room, name, other);
    }
}

} // namespace halyard
