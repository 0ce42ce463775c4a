#include "bridge/watch/alarms/AlarmBook.h"

#include "base/Text.h"
#include "platform/Platform.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr const char* ByOperator = "The operator's own doing.";

std::string ShortWords(std::string text) {
    if (text.size() > AlarmBook::LongestWords) text.replace(AlarmBook::LongestWords, text.npos, "...");
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return text;
}

} // namespace

std::string SentenceOf(const Ring& ring) {
    auto words = std::string(TextOf(ring.kind).words);
    if (ring.reason == RingReason::Ended) words = "Over: " + Lower(words.substr(0, 1)) + words.substr(1);
    return words + (ring.subject.empty() ? ". " : ": " + ring.subject + ". ") + ring.words;
}

AlarmBook::AlarmBook(Platform& platform) : platform(platform), restTimer(platform.NewTimer()) {
    restTimer->onTick = [this] { Tick(); };
}

void AlarmBook::SetTerms(const AlarmTerms& wanted) {
    terms = wanted;
    for (std::size_t index = 1; index < AlarmKindCount; ++index) {
        const auto kind = static_cast<AlarmKind>(index);
        if (!terms.Of(kind).on) Withdraw(kind);
    }
    WakeForRests();
}

/// What is off is forgotten; it is raised again while it lasts.
void AlarmBook::Raise(AlarmKind kind, const std::string& subject, const std::string& words) {
    if (!terms.Of(kind).on) return;
    const Key key{kind, ShortWords(subject)};
    if (!entries.contains(key) && !MayAdd(kind)) return;
    auto& entry = entries[key];
    if (entry.is.fires) return;
    entry.is.fires = true;
    entry.is.since = platform.Milliseconds();
    entry.held = false;
    entry.words = ShortWords(words);
    ++entry.changes;
    Judge(key);
}

void AlarmBook::End(AlarmKind kind, const std::string& subject, const std::string& words) {
    const Key key{kind, ShortWords(subject)};
    const auto found = entries.find(key);
    if (found == entries.end() || !found->second.is.fires) return;
    auto& entry = found->second;
    entry.is.fires = false;
    entry.is.ended = entry.told.standing;
    entry.words = ShortWords(words);
    ++entry.changes;
    Judge(key);
}

void AlarmBook::Withdraw(AlarmKind kind, const std::string& subject) {
    const Key key{kind, ShortWords(subject)};
    const auto found = entries.find(key);
    if (found == entries.end()) return;
    const bool stood = found->second.told.standing;
    entries.erase(found); // with its rest: what begins then is another
    if (!stood) return;
    ++version;
    if (onKeep) onKeep(RingOf(key, RingReason::Ended, ByOperator));
    if (onChanged) onChanged();
}

void AlarmBook::Withdraw(AlarmKind kind) {
    std::vector<std::string> subjects;
    for (const auto& [key, entry] : entries)
        if (key.first == kind) subjects.push_back(key.second);
    for (const auto& subject : subjects) Withdraw(kind, subject);
}

bool AlarmBook::Fires(AlarmKind kind, const std::string& subject) const {
    const auto found = entries.find({kind, ShortWords(subject)});
    return found != entries.end() && found->second.is.fires;
}

std::vector<RingingAlarm> AlarmBook::Ringing() const {
    std::vector<RingingAlarm> all;
    for (const auto& [key, entry] : entries)
        if (entry.told.standing) all.push_back({key.first, key.second, entry.rangFrom, entry.words});
    std::ranges::stable_sort(all, {}, &RingingAlarm::since);
    return all;
}

/// Who hears a ring may raise or end the same alarm: it is looked at until it stays as it was told.
void AlarmBook::Judge(const Key& key) {
    for (auto found = entries.find(key); found != entries.end(); found = entries.find(key)) {
        auto& entry = found->second;
        entry.is.others = OthersStand(key);
        const auto now = platform.Milliseconds();
        const auto reason = ToRing(entry.told, entry.is, RestOf(key.first), now);
        if (reason == RingReason::Nothing) {
            if (entry.is.fires && !entry.told.standing && !entry.held) {
                entry.held = true;
                const auto ring = RingOf(key, reason, entry.words);
                if (onKeep) onKeep(ring);
            }
            break;
        }
        RingOut(key, reason);
    }
    WakeForRests();
}

void AlarmBook::RingOut(const Key& key, RingReason reason) {
    auto& entry = entries[key];
    const auto ring = RingOf(key, reason, entry.words);
    if (reason == RingReason::Ended) {
        entry.told.standing = entry.is.ended = false;
    } else {
        entry.told = {platform.Milliseconds(), true};
        entry.rangFrom = ring.at;
    }
    if (rang.size() >= MostRings) rang.pop_front();
    rang.push_back(ring);
    ++ringCount;
    ++version;
    if (onKeep) onKeep(ring);
    if (onRing) onRing(ring);
    if (onChanged) onChanged();
}

Ring AlarmBook::RingOf(const Key& key, RingReason reason, const std::string& words) const {
    return {platform.CalendarMilliseconds(), key.first, key.second, reason, words};
}

bool AlarmBook::MayAdd(AlarmKind kind) const {
    const auto of = [kind](const auto& entry) { return entry.first.first == kind; };
    return static_cast<std::size_t>(std::ranges::count_if(entries, of)) < MostSubjects;
}

bool AlarmBook::OthersStand(const Key& key) const {
    return std::ranges::any_of(entries, [&](const auto& entry) {
        return entry.first.first == key.first && entry.first != key && entry.second.told.standing;
    });
}

std::int64_t AlarmBook::RestOf(AlarmKind kind) const { return std::int64_t{terms.Of(kind).rest} * 60'000; }

/// For the next end of a rest, and what rested and came to nothing is forgotten.
void AlarmBook::WakeForRests() {
    const auto now = platform.Milliseconds();
    std::int64_t next = -1;
    for (auto at = entries.begin(); at != entries.end();) {
        const auto& [key, entry] = *at;
        const auto end = entry.told.rangAt + RestOf(key.first);
        const bool over = entry.told.rangAt < 0 || end <= now;
        if (!entry.is.fires && !entry.told.standing && over) {
            at = entries.erase(at);
            continue;
        }
        if (!entry.told.standing && !over && (next < 0 || end < next)) next = end;
        ++at;
    }
    restTimer->SetEnabled(false);
    if (next < 0) return;
    restTimer->SetInterval(static_cast<int>(std::clamp<std::int64_t>(next - now, 1, 3'600'000)));
    restTimer->SetEnabled(true);
}

void AlarmBook::Tick() {
    restTimer->SetEnabled(false);
    std::vector<Key> held;
    for (const auto& [key, entry] : entries)
        if (entry.is.fires && !entry.told.standing) held.push_back(key);
    for (const auto& key : held) Judge(key);
    WakeForRests();
}

} // namespace halyard
