#include "soak/watch/AlarmWatch.h"

#include "soak/Time.h"

#include <utility>

namespace halyard {

namespace {

/// Two looks of the alarms, and the longest sign-on.
constexpr std::int64_t alarmSlack = 20 * second + 60 * second + 15 * second;

} // namespace

AlarmWatch::AlarmWatch(AlarmBook& book, std::function<bool()> online, bool quiet)
    : book(book), online(std::move(online)), quiet(quiet) {
    book.onKeep = [this, passOn = book.onKeep](const Ring& ring) {
        if (passOn) passOn(ring);
        Hear(ring);
    };
}

void AlarmWatch::Find(const std::string& words) {
    if (finding.empty()) finding = words;
}

void AlarmWatch::Hear(const Ring& ring) {
    if (ring.reason == RingReason::Nothing) return;
    const Key key{ring.kind, ring.subject};
    const auto name = std::string(TextOf(ring.kind).name);
    rang += (rang.empty() ? "" : ", ") + name + (ring.reason == RingReason::Ended ? " ended" : " began");
    if (quiet) Find("an alarm rings though all is well: " + SentenceOf(ring));
    if (ring.reason == RingReason::Ended) {
        if (standing.erase(key) == 0) Find("an alarm ends that didn't ring: " + SentenceOf(ring));
        return;
    }
    if (!standing.emplace(key, ring.at).second) Find("an alarm rings twice: " + SentenceOf(ring));
    ++counts[ring.kind];
    const auto rest = std::int64_t{book.Terms().Of(ring.kind).rest} * minute;
    const auto before = last.find(key);
    // What was taken back, by the operator or an op, has no rest: it begins then, alone or beside others.
    if (before != last.end() && ring.at - before->second < rest && ring.reason == RingReason::RestOver)
        Find("an alarm rings before its rest is over: " + SentenceOf(ring));
    last[key] = ring.at;
}

std::string AlarmWatch::Check(std::int64_t now) {
    if (!wanted || online()) {
        offSince = -1;
        return finding;
    }
    if (offSince < 0) offSince = now;
    const auto longest = std::int64_t{book.Terms().Of(AlarmKind::OffLine).minutes} * minute + alarmSlack;
    if (now - offSince < longest) return finding;
    for (const auto kind : {AlarmKind::OffLine, AlarmKind::GivenUp, AlarmKind::NeedsYou})
        if (book.Fires(kind, {})) return finding;
    Find("the bot is off line, and no alarm says so");
    return finding;
}

std::string AlarmWatch::CheckWell() const {
    for (const auto& alarm : book.Ringing())
        if (alarm.kind == AlarmKind::OffLine || alarm.kind == AlarmKind::GivenUp ||
            alarm.kind == AlarmKind::NeedsYou || alarm.kind == AlarmKind::RoomLost)
            return "an alarm goes on though all is well: " + std::string(TextOf(alarm.kind).words) + " " +
                   alarm.subject;
    return {};
}

std::string AlarmWatch::Rang() { return std::exchange(rang, {}); }

} // namespace halyard
