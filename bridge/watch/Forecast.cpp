#include "bridge/watch/Forecast.h"

#include "base/Collection.h"
#include "base/Text.h"
#include "rooms/ChatSendKeys.h"
#include "rooms/Chats.h"
#include "rooms/Fold.h"
#include "rooms/TimerTags.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace halyard {

namespace {

constexpr float LongBanPause = 60; // s

/// Answers wait apart from all other lines, where they wait at all.
bool IsAnswer(const WaitingLine& line) { return line.send.TheMsgType == "msg3"; }

/// One goes with each end of their pause; with it go, unsaid, those whose turn would come too late.
void PlayAnswers(const RoomTruth& room, std::int64_t now, std::vector<Departing>& result) {
    const auto step = FindTimerTag("msg3")->milliseconds;
    auto turn = room.PauseEnd(Pause::Lines3, now);
    bool first = true;
    for (std::size_t at = 0; at < std::min(result.size(), ForecastDepth); ++at) {
        const auto& line = room.lines[at];
        if (!IsAnswer(line) || turn < now) continue;
        auto& departing = result[at];
        departing.why = first ? Holdup::Pause : Holdup::Ahead;
        departing.overtaken = !first && turn - line.since > Chats::OldestAnswer;
        departing.at = departing.overtaken ? turn - step : turn;
        if (!departing.overtaken) turn += step;
        first = false;
    }
}

/// A room's lines, its two pauses and its rules for what a pause's end sends, on a copy.
class LinesAhead {
  public:
    LinesAhead(const RoomTruth& room, std::int64_t now, std::vector<Departing>& result)
        : result(result), ends{End(room, Pause::Lines1, now), End(room, Pause::Lines2, now)} {
        std::size_t at = 0;
        for (const auto& line : room.lines) {
            if (at == ForecastDepth) break;
            if (!IsAnswer(line)) queue.Add(line.send);
            place[line.send.Number] = at++;
        }
    }

    void Play() {
        while (queue.Count() > 0 && (ends[0] >= 0 || ends[1] >= 0)) {
            const bool first = ends[1] < 0 || (ends[0] >= 0 && ends[0] <= ends[1]);
            Fire(first ? 0 : 1);
        }
    }

  private:
    static std::int64_t End(const RoomTruth& room, Pause pause, std::int64_t now) {
        const auto end = room.PauseEnd(pause, now);
        return end >= now && end > 0 ? end : -1;
    }

    std::ptrdiff_t FirstOf(std::string_view tag) const {
        std::ptrdiff_t position = 0;
        for (const auto& waiting : queue)
            if (++position; waiting.TheMsgType == tag) return position;
        return 0;
    }

    /// A pause of the class `tags[at]` ends: the first that waits under its tag is said by the rules of its
    /// key, which may be those of the other class.
    void Fire(std::size_t at) {
        const auto moment = ends[at];
        ends[at] = -1;
        const auto position = FirstOf(tags[at]);
        if (position == 0) return;
        const auto next = queue.Item(position);
        switch (SendGroupOf(next.TheType)) {
        case SendGroup::MergeSameOther: return Merge(next, moment, true);
        case SendGroup::Merge: return Merge(next, moment, false);
        case SendGroup::OneByOne: return SayOne(moment);
        default: return; // it stays, and nothing comes back to it by itself
        }
    }

    void Merge(const Msgs& next, std::int64_t moment, bool sameOther) {
        if (ends[0] >= 0) return; // it would wait a second time
        std::vector<std::int64_t> numbers;
        FoldWaitingSends(queue, next.TheType, next.TheMessage.size(), sameOther, &numbers);
        for (const auto number : numbers) Goes(number, moment, false);
        ends[0] = moment + FindTimerTag(tags[0])->milliseconds;
    }

    /// The head of the queue goes, whatever it is.
    void SayOne(std::int64_t moment) {
        if (ends[1] >= 0) return;
        if (const auto position = FirstOf(tags[1]); position > 0) {
            Goes(queue.Item(1).Number, moment, position > 1);
            queue.Remove(1);
        }
        ends[1] = moment + FindTimerTag(tags[1])->milliseconds;
    }

    void Goes(std::int64_t number, std::int64_t moment, bool overtaken) {
        if (const auto found = place.find(number); found != place.end()) {
            result[found->second].at = moment;
            result[found->second].overtaken = overtaken;
        }
    }

    static constexpr std::string_view tags[2] = {"msg1", "msg2"};
    std::vector<Departing>& result;
    std::int64_t ends[2]; // -1: the pause doesn't run
    Collection<Msgs> queue;
    std::unordered_map<std::int64_t, std::size_t> place; // in the result, by number
};

/// The moment of the last that was played through, for those behind it.
void FillRest(std::vector<Departing>& all) {
    std::int64_t last = -1;
    for (std::size_t at = 0; at < std::min(all.size(), ForecastDepth); ++at)
        last = std::max(last, all[at].at);
    for (std::size_t at = ForecastDepth; at < all.size(); ++at) all[at].at = last;
}

/// From one request that waited to the next, ms: a long pause is counted off in seconds, and the second that
/// finds the count complete is one more.
std::int64_t BanStep(float banPause) {
    if (banPause < LongBanPause) return std::max(1, RoundToInt32(banPause * 1000).value_or(1));
    const auto seconds = static_cast<std::int64_t>(std::min(banPause, 1000000.0F));
    return ((static_cast<float>(seconds) < banPause ? seconds + 1 : seconds) + 1) * 1000;
}

} // namespace

std::vector<Departing> ForecastLines(const RoomTruth& room, std::int64_t now) {
    std::vector<Departing> result;
    for (const auto& line : room.lines) result.push_back({.number = line.send.Number});
    if (room.rated[5]) { // nothing is said before it is over, nor then by itself
        for (auto& line : result) line.why = Holdup::Rated;
        return result;
    }
    LinesAhead(room, now, result).Play();
    FillRest(result);
    const auto next = std::max(room.PauseEnd(Pause::Lines1, now), room.PauseEnd(Pause::Lines2, now));
    for (auto& line : result)
        if (line.at > next) line.why = Holdup::Ahead;
    PlayAnswers(room, now, result);
    return result;
}

std::vector<Departing> ForecastBans(const RoomTruth& room, std::int64_t now, float banPause) {
    std::vector<Departing> result;
    const bool rated = room.rated[1];
    const auto pause = std::max(room.PauseEnd(Pause::Bans, now), now);
    const auto first = !rated ? pause : room.freeAt[1] < 0 ? -1 : std::max(room.freeAt[1], now);
    for (const auto& ban : room.bans) {
        const auto ahead = static_cast<std::int64_t>(result.size());
        const auto at = first < 0 ? -1 : first + ahead * BanStep(banPause);
        result.push_back({ban.id, at, rated ? Holdup::Rated : ahead > 0 ? Holdup::Ahead : Holdup::Pause});
    }
    return result;
}

} // namespace halyard
