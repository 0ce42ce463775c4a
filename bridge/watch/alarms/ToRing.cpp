#include "bridge/watch/alarms/ToRing.h"

namespace halyard {

const char* WordOf(RingReason reason) {
    switch (reason) {
    case RingReason::First: return "first";
    case RingReason::More: return "more";
    case RingReason::Ended: return "ended";
    case RingReason::RestOver: return "rest-over";
    case RingReason::Nothing: break;
    }
    return "nothing";
}

RingReason ToRing(const AlarmTold& told, const AlarmNow& is, std::int64_t rest, std::int64_t now) {
    if (told.standing) return is.ended || !is.fires ? RingReason::Ended : RingReason::Nothing;
    if (!is.fires) return RingReason::Nothing;
    const bool rang = told.rangAt >= 0;
    if (rang && now - told.rangAt < rest) return RingReason::Nothing;
    if (rang && is.since - told.rangAt < rest) return RingReason::RestOver;
    return is.others ? RingReason::More : RingReason::First;
}

} // namespace halyard
