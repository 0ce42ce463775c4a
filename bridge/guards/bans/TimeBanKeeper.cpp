#include "bridge/guards/bans/TimeBanKeeper.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::string_view KeyHead = "time ban ";
constexpr std::int64_t OverLongAgo = 0; ///< the end of one that is being lifted

std::string KeyOf(const std::string& record) {
    const auto ban = ReadTimeBan(record);
    return std::string(KeyHead) + NormalizeName(ban.room) + " " + std::to_string(ban.exchange) + " " +
           std::to_string(ban.instance) + " " + NormalizeName(ban.user);
}

/// The end in ms since 1970, a blank, and the record.
std::string EndAndRecord(std::int64_t end, const std::string& record) {
    return std::to_string(end) + " " + record;
}

/// As it goes on: in no slot, since which one its room gets isn't known yet.
std::string Resumed(const std::string& record, std::int64_t ticks) {
    const auto ban = ReadTimeBan(record);
    return WithTicksLeft(NewTimeBan(ban.user, ban.room, ban.exchange, ban.instance, 0, ban.minutes), ticks);
}

} // namespace

bool TimeBanKeeper::IsOn() const { return control.Departs(Departure::TimeBansAreKept); }

void TimeBanKeeper::Restore(const GuardsFile::Rows& rows) {
    const auto now = platform.CalendarMilliseconds();
    for (const auto& [key, text] : rows) {
        const auto blank = text.find(' ');
        if (!key.starts_with(KeyHead)) continue;
        if (!IsOn() || blank == std::string::npos) {
            file.Drop(key);
            continue;
        }
        if (!kept.emplace(key, text).second) continue; // it was set again since the start
        const auto end = static_cast<std::int64_t>(ToNumber(text.substr(0, blank)).value_or(0));
        control.ResumeTimeBan(
            Resumed(text.substr(blank + 1), std::max<std::int64_t>(1, (end - now + 999) / 1000)));
    }
}

void TimeBanKeeper::SwitchesChanged() {
    if (IsOn() == !kept.empty()) return;
    if (IsOn())
        for (const auto& record : control.TimeBans) Keep(record);
    while (!IsOn() && !kept.empty()) Drop(std::string(kept.begin()->first));
}

void TimeBanKeeper::TimeBanTold(TimeBanStep step, const std::string& record) {
    if (!IsOn()) return;
    if (step == TimeBanStep::Set) return Keep(record);
    if (step == TimeBanStep::Forgotten) return Drop(KeyOf(record));
    const auto key = KeyOf(record);
    kept[key] = EndAndRecord(OverLongAgo, record);
    file.Put(key, kept[key]);
}

void TimeBanKeeper::BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                              const std::string& /*other*/) {
    liftedById.erase(id);
    const auto there = kept.empty() || kind == BanKind::Kick ? nullptr : control.Room(room);
    if (!there) return;
    const auto key = KeyOf(NewTimeBan(Replace(name, ":", "\x1F"), there->ChatName, there->Exchange,
                                      there->Instance, there->ChatIndex, "0"));
    if (!IsLifted(key)) return;
    if (IsReadmission(kind))
        liftedById[id] = key;
    else
        Drop(key); // banned anew before the answer came
}

void TimeBanKeeper::BanAnswered(std::int16_t /*room*/, std::int32_t id, BanVerdict verdict, int /*word*/) {
    const auto found = liftedById.find(id);
    if (found == liftedById.end()) return;
    const std::string key = found->second;
    liftedById.erase(found);
    // Banned for a time anew meanwhile: then it runs.
    if (verdict != BanVerdict::Refused && IsLifted(key)) Drop(key);
}

bool TimeBanKeeper::IsLifted(const std::string& key) const {
    const auto found = kept.find(key);
    return found != kept.end() && found->second.starts_with("0 ");
}

void TimeBanKeeper::Keep(const std::string& record) {
    const auto end = platform.CalendarMilliseconds() + ReadTimeBan(record).secondsLeft * 1000;
    const auto key = KeyOf(record);
    kept[key] = EndAndRecord(end, record);
    file.Put(key, kept[key]);
}

void TimeBanKeeper::Drop(const std::string& key) {
    if (kept.erase(key) > 0) file.Drop(key);
}

} // namespace halyard
