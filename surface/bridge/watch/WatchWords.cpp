#include "surface/bridge/watch/WatchWords.h"

#include "base/Text.h"
#include "bridge/ledger/reading/Moments.h"
#include "platform/Platform.h"

#include <cstdlib>

namespace halyard {

namespace {

constexpr std::int64_t ClockSlack = 500; // ms by which the two clocks may go apart unseen

const char* StageWord(Stage stage) {
    switch (stage) {
    case Stage::Off: return "off";
    case Stage::Underway: return "under way";
    case Stage::On: return "on line";
    case Stage::ComingBack: return "lost, coming back";
    case Stage::Lost: return "lost";
    case Stage::Refused: return "refused";
    }
    return "";
}

const char* RuleWords(RuleKind rule) {
    switch (rule) {
    case RuleKind::None: break;
    case RuleKind::Autoban: return "autoban";
    case RuleKind::Autoword: return "autoword";
    case RuleKind::Ghost: return "ghost ban";
    case RuleKind::ICQ: return "ban of names of digits";
    case RuleKind::Chars: return "ban by length of name";
    case RuleKind::Lock: return "lock";
    }
    return "";
}

std::string WithDetail(const char* word, const std::string& detail) {
    return detail.empty() ? word : std::string(word) + " " + detail;
}

const char* LineDropWord(LineDrop why) {
    switch (why) {
    case LineDrop::Paused: return "another of its kind had just been said";
    case LineDrop::Rated: return "talking was limited";
    case LineDrop::Cleared: return "the operator emptied the queue";
    case LineDrop::Overtaken: return "a line behind it was said";
    case LineDrop::Lost: return "the room was left or lost";
    case LineDrop::Unknown: return "its key says nothing";
    case LineDrop::ByHand: return "the operator took it out";
    case LineDrop::TooOld: return "it had waited too long";
    case LineDrop::TooMany: return "too many waited";
    }
    return "";
}

const char* BanDropWord(DropReason why) {
    switch (why) {
    case DropReason::NoRoom: return "the room wasn't open";
    case DropReason::Rated: return "banning was limited";
    case DropReason::Cleared: return "the operator emptied the queue";
    case DropReason::Locked: return "the locked bans hold the name";
    case DropReason::Lost: return "the room was left or lost";
    case DropReason::ByHand: return "the operator took it out";
    }
    return "";
}

} // namespace

std::int64_t WatchClock::Now() const { return platform.Milliseconds(); }

std::int64_t WatchClock::Calendar(std::int64_t moment) {
    const auto apartNow = platform.CalendarMilliseconds() - platform.Milliseconds();
    if (std::llabs(apartNow - apart) > ClockSlack) apart = apartNow;
    return moment + apart;
}

std::string WatchClock::Shown(std::int64_t moment) {
    if (moment < 0) return {};
    const auto calendar = Calendar(moment);
    const auto clock = ShownClock(calendar);
    const auto day = ShownDay(calendar);
    return day == ShownDay(platform.CalendarMilliseconds()) ? clock : day + " " + clock;
}

std::string StageWords(const StageTruth& standing, std::int64_t now) {
    std::string words = standing.IsStuck(now) ? "stuck: " : "";
    if (standing.stage == Stage::On && !standing.words.empty()) return words + standing.words;
    words += StageWord(standing.stage);
    const bool says = !standing.words.empty() && Lower(standing.words) != StageWord(standing.stage);
    return says ? words + " (" + standing.words + ")" : words;
}

std::string OriginWords(const Origin& origin) {
    if (origin.rule != RuleKind::None) return WithDetail(RuleWords(origin.rule), origin.entry);
    switch (origin.kind) {
    case CauseKind::Unknown: return "the bot itself";
    case CauseKind::OpLine: return WithDetail("op", origin.op);
    case CauseKind::OpIM: return WithDetail("op by IM", origin.op);
    case CauseKind::Internal: return "an internal command";
    case CauseKind::Rule: return "a rule";
    case CauseKind::Hand: return "the operator's hand";
    case CauseKind::Load: return "a file that was read";
    case CauseKind::Timer: return "a timer";
    case CauseKind::Reply: return "a reply";
    case CauseKind::Service: return "the service";
    case CauseKind::Undo: return "an undo";
    case CauseKind::Answer: return "an answer";
    case CauseKind::Guard: return WithDetail("guard", origin.entry);
    }
    return {};
}

std::string DropWords(const DroppedThing& dropped) {
    return dropped.ban ? BanDropWord(dropped.reason) : LineDropWord(dropped.line);
}

std::string HoldupWords(const Departing& departing) {
    if (departing.overtaken) return "never: it goes unsaid when a line behind it does";
    switch (departing.why) {
    case Holdup::Pause: return "the pause";
    case Holdup::Ahead: return "others before it";
    case Holdup::Rated: return "the room is limited";
    }
    return {};
}

std::string BanWords(BanKind kind) {
    switch (kind) {
    case BanKind::Ban: return "ban";
    case BanKind::Unban: return "unban";
    case BanKind::UnbanKick: return "letting in again";
    case BanKind::Kick: return "kick";
    case BanKind::Autoban:
    case BanKind::Autoword: return "ban by a list";
    case BanKind::Ghost:
    case BanKind::AutoGhost: return "ghost ban";
    case BanKind::Char: return "ban by length of name";
    case BanKind::ICQ: return "ban of a name of digits";
    case BanKind::TimeBan: return "time ban";
    }
    return {};
}

std::string RateWords(const RoomTruth& room, WatchClock& clock) {
    std::string words;
    for (std::size_t level = 1; level < room.rated.size(); ++level) {
        if (!room.rated[level]) continue;
        if (!words.empty()) words += ", ";
        words += level == 1   ? std::string("banning")
                 : level == 5 ? std::string("talking")
                              : "class " + std::to_string(level);
        words += " limited";
        if (room.freeAt[level] >= 0) words += " until " + clock.Shown(room.freeAt[level]);
    }
    return words.empty() ? "free" : words;
}

} // namespace halyard
