#include "bridge/watch/Samples.h"

#include "bridge/watch/Truth.h"
#include "platform/Platform.h"
#include "platform/Timer.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int BanClass = 1; // rate classes of a room
constexpr int LineClass = 5;

/// The count of the sample in which a ban with this cause stands.
int& BansCount(SampleFact& sample, const CauseScope* cause) {
    for (; cause; cause = cause->outer) {
        switch (cause->cause.rule) {
        case RuleKind::Autoban: return sample.byAutoban;
        case RuleKind::Autoword: return sample.byAutoword;
        case RuleKind::Ghost: return sample.byGhost;
        case RuleKind::ICQ: return sample.byICQ;
        case RuleKind::Chars: return sample.byChars;
        case RuleKind::Lock:
        case RuleKind::None: break;
        }
        const auto kind = cause->cause.kind;
        if (kind == CauseKind::OpLine || kind == CauseKind::OpIM) return sample.byOps;
    }
    return sample.byOthers;
}

} // namespace

Samples::Samples(Platform& platform, const Telling& telling, const Truth& truth)
    : platform(platform), telling(telling), truth(truth), timer(platform.NewTimer()) {
    timer->onTick = [this] { TurnTheMinute(); };
}

Samples::~Samples() = default;

void Samples::Start() {
    Begin();
    timer->SetEnabled(true);
}

/// The timer ends with the minute, however late the last one came.
void Samples::Begin() {
    const auto calendar = platform.CalendarMilliseconds();
    now = {};
    now.minute = calendar / MinuteMs;
    held = {};
    lookedAt = began = platform.Milliseconds();
    heardBefore = truth.HeardCount();
    LookAgain();
    CountWaiting();
    timer->SetInterval(static_cast<int>(MinuteMs - calendar % MinuteMs));
}

void Samples::TurnTheMinute() {
    const auto calendar = platform.CalendarMilliseconds();
    const bool early = calendar / MinuteMs == now.minute && platform.Milliseconds() - began < MinuteMs;
    if (early) return timer->SetInterval(static_cast<int>(MinuteMs - calendar % MinuteMs));
    const auto sample = UnderWay();
    while (!minutes.empty() && minutes.back().minute >= sample.minute) minutes.pop_back();
    minutes.push_back(sample);
    Begin();
    Forget();
    if (onSample) onSample(sample);
}

SampleFact Samples::UnderWay() {
    LookAgain();
    auto sample = now;
    const auto seconds = [](std::int64_t ms) {
        return static_cast<int>(std::min<std::int64_t>((ms + 500) / 1000, 60));
    };
    sample.online = seconds(held[0]);
    sample.ratedBans = seconds(held[1]);
    sample.ratedLines = seconds(held[2]);
    sample.heard = static_cast<int>(truth.HeardCount() - heardBefore);
    for (const auto& [slot, room] : truth.Rooms()) {
        if (room.standing.stage != Stage::On) continue;
        ++sample.rooms;
        sample.people += room.people;
    }
    return sample;
}

int Samples::SecondsUnderWay() const {
    return static_cast<int>(std::clamp<std::int64_t>((platform.Milliseconds() - began) / 1000, 0, 60));
}

void Samples::LookAgain() {
    const auto moment = platform.Milliseconds();
    for (std::size_t index = 0; index < holds.size(); ++index)
        if (holds[index]) held[index] += moment - lookedAt;
    lookedAt = moment;
    holds = {truth.Account().stage == Stage::On};
    for (const auto& [slot, room] : truth.Rooms()) {
        holds[1] = holds[1] || room.rated[BanClass];
        holds[2] = holds[2] || room.rated[LineClass];
    }
}

void Samples::CountWaiting() {
    std::size_t lines = 0, bans = 0;
    for (const auto& [slot, room] : truth.Rooms()) lines += room.lines.size(), bans += room.bans.size();
    now.linesWaiting = std::max(now.linesWaiting, static_cast<int>(lines));
    now.bansWaiting = std::max(now.bansWaiting, static_cast<int>(bans));
}

void Samples::BanWanted(std::int16_t, std::int32_t, BanKind kind, const std::string&, const std::string&) {
    CountWaiting();
    if (!IsReadmission(kind)) ++BansCount(now, telling.cause);
}

void Samples::TakeEarlier(const std::vector<SampleFact>& earlier) {
    for (const auto& sample : earlier) {
        const auto place = std::ranges::lower_bound(minutes, sample.minute, {}, &SampleFact::minute);
        if (place == minutes.end() || place->minute != sample.minute) minutes.insert(place, sample);
    }
    Forget();
}

void Samples::Forget() {
    while (!minutes.empty() && minutes.front().minute < now.minute - InMemory) minutes.pop_front();
}

SampleFact Joined(const std::vector<const SampleFact*>& samples) {
    SampleFact all;
    if (!samples.empty()) all.minute = samples.front()->minute;
    for (const auto* each : samples) {
        all.rooms = each->rooms, all.people = each->people;
        all.linesWaiting = std::max(all.linesWaiting, each->linesWaiting);
        all.bansWaiting = std::max(all.bansWaiting, each->bansWaiting);
        for (const auto field :
             {&SampleFact::online, &SampleFact::ratedBans, &SampleFact::ratedLines, &SampleFact::heard,
              &SampleFact::said, &SampleFact::dropped, &SampleFact::byAutoban, &SampleFact::byAutoword,
              &SampleFact::byGhost, &SampleFact::byICQ, &SampleFact::byChars, &SampleFact::byOps,
              &SampleFact::byOthers})
            all.*field += each->*field;
    }
    return all;
}

} // namespace halyard
