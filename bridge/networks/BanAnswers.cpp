#include "bridge/networks/BanAnswers.h"

#include "platform/Platform.h"

namespace halyard {

namespace {

constexpr std::int64_t Patience = 30000; // ms
constexpr int LookEvery = 1000;          // ms, while something is waited for

} // namespace

BanAnswers::BanAnswers(Platform& platform, Tell tell)
    : platform(platform), tell(std::move(tell)), timer(platform.NewTimer()) {
    timer->SetInterval(LookEvery);
    timer->onTick = [this] { Tick(); };
}

void BanAnswers::SignedOn(const std::string&) { ForgetAll(); }

void BanAnswers::SignedOff() { ForgetAll(); }

void BanAnswers::RoomEntered(std::int16_t room, const std::string& name, std::int16_t) {
    Forget(room);
    rooms[room] = name;
}

void BanAnswers::RoomLeft(std::int16_t room, const std::string&, const std::string&) { Forget(room); }

void BanAnswers::BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) {
    if (enforcedElsewhere) return;
    // An id that is given out again belongs to the new request alone.
    asked[{room, id}] = {kind, name, platform.Milliseconds() + Patience};
    timer->SetEnabled(true);
}

void BanAnswers::BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int) {
    asked.erase({room, id});
    if (verdict != BanVerdict::NotEnforced || enforcedElsewhere || !notEnforced.insert(room).second) return;
    tell("This network does not enforce bans: nobody is put out of " + RoomName(room) + ".");
}

void BanAnswers::Forget(std::int16_t room) {
    asked.erase(asked.lower_bound({room, 0}), asked.upper_bound({room, INT32_MAX}));
    notEnforced.erase(room);
    rooms.erase(room);
}

void BanAnswers::ForgetAll() {
    asked.clear();
    notEnforced.clear();
    rooms.clear();
    timer->SetEnabled(false);
}

void BanAnswers::Tick() {
    const auto now = platform.Milliseconds();
    std::map<std::pair<std::int16_t, std::int32_t>, Request> silent;
    for (auto request = asked.begin(); request != asked.end();) {
        auto here = request++;
        if (here->second.until <= now) silent.insert(asked.extract(here));
    }
    if (asked.empty()) timer->SetEnabled(false);
    for (const auto& [key, request] : silent)
        tell(std::string("No answer: the service has not said whether it ") +
             (request.kind == BanRequestKind::Ban ? "bans " : "lets in ") + request.name + " in " +
             RoomName(key.first) + ".");
}

std::string BanAnswers::RoomName(std::int16_t room) const {
    const auto found = rooms.find(room);
    return found == rooms.end() ? "the room" : found->second;
}

} // namespace halyard
