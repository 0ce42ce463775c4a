#include "bridge/watch/alarms/MessageRinger.h"

#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

constexpr int RingerLook = 10'000; // ms
constexpr std::int64_t RingerDay = 86'400;

} // namespace

MessageRinger::MessageRinger(Platform& platform, Doors doors)
    : platform(platform), doors(std::move(doors)), timer(platform.NewTimer()) {
    timer->SetInterval(RingerLook);
    timer->onTick = [this] { Tick(); };
}

void MessageRinger::Take(const std::vector<std::string>& wanted, bool daily) {
    names = wanted;
    if (names.empty()) waiting = 0;
    if (!daily || names.empty())
        day = 0;
    else if (day == 0)
        day = platform.CalendarSeconds() / RingerDay;
    timer->SetEnabled(!names.empty());
}

/// Sent by the timer alone: who rings may be in the midst of something.
void MessageRinger::Hear(const Ring& ring) {
    if (names.empty()) return;
    if (waiting++ == 0) first = SentenceOf(ring);
}

void MessageRinger::Tick() {
    if (!doors.online()) return;
    if (waiting > 0 && platform.Milliseconds() >= nextAt) SendWaiting();
    const auto today = platform.CalendarSeconds() / RingerDay;
    if (day == 0 || today == day) return;
    day = today;
    SendAll("Once a day: " + doors.health());
}

void MessageRinger::SendWaiting() {
    nextAt = platform.Milliseconds() + Pause;
    const auto more = std::exchange(waiting, 0) - 1;
    SendAll(first + (more == 0 ? "" : " (and " + std::to_string(more) + " more)"));
}

void MessageRinger::SendAll(const std::string& text) {
    for (const auto& name : names) doors.send(name, text);
}

} // namespace halyard
