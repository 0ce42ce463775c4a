#include "practice/service/RateClasses.h"

#include "oscar/wire/ModOscarFunctions.h"

#include <algorithm>

namespace halyard {

namespace {

struct Member {
    int classId;
    int family;
    int subtype;
};

constexpr Member members[] = {
    {1, 0x0001, 0x0004}, {1, 0x0001, 0x000E}, {1, 0x0002, 0x0004}, {1, 0x000D, 0x0002}, {1, 0x000D, 0x0003},
    {1, 0x000D, 0x0004}, {1, 0x000D, 0x0008}, {1, 0x000E, 0x0023}, {1, 0x000E, 0x0024}, {1, 0x000E, 0x0025},
    {2, 0x0003, 0x0004}, {2, 0x0003, 0x0005}, {2, 0x0013, 0x0008}, {2, 0x0013, 0x0009}, {2, 0x0013, 0x000A},
    {3, 0x0004, 0x0006}, {3, 0x0004, 0x0014}, {4, 0x0002, 0x0005}, {4, 0x0002, 0x0015}, {5, 0x000E, 0x0005},
};

/// The class of a request where common services sort it: they know no bans in rooms.
int ClassElsewhere(const Member& member) {
    if (member.family == 0x000E) return member.subtype == 0x0005 ? 2 : 0;
    return member.family == 0x0002 && member.subtype != 0x0004 ? 3 : member.classId;
}

int ClassOf(const Member& member, bool asElsewhere) {
    return asElsewhere ? ClassElsewhere(member) : member.classId;
}

std::string GroupBytes(int classId, bool asElsewhere) {
    std::string pairs;
    int count = 0;
    for (const auto& member : members) {
        if (ClassOf(member, asElsewhere) != classId) continue;
        pairs += WordToStr(member.family) + WordToStr(member.subtype);
        ++count;
    }
    return WordToStr(classId) + WordToStr(count) + pairs;
}

std::string Long(std::int64_t value) {
    return LongToStr(static_cast<double>(std::clamp<std::int64_t>(value, 0, 4294967295)));
}

} // namespace

RateClasses DefaultRateClasses() {
    return {{{80, 2500, 2000, 1500, 800, 6000},
             {80, 3000, 2000, 1500, 1000, 6000},
             {20, 5100, 5000, 4000, 3000, 6000},
             {20, 5500, 5300, 4200, 3000, 8000},
             {10, 5500, 5300, 4200, 3000, 8000}}};
}

int RateClassOf(int family, int subtype, bool asElsewhere) {
    for (const auto& member : members)
        if (member.family == family && member.subtype == subtype) return ClassOf(member, asElsewhere);
    return 0;
}

RateMeter::RateMeter(const RateClasses& classes, std::int64_t now) : classes(classes) {
    for (int classId = 1; classId <= 5; ++classId)
        Of(classId) = {Limits(classId).max, now, RateCode::Clear, false};
}

std::int64_t RateMeter::After(int classId, std::int64_t now) const {
    const auto& limits = Limits(classId);
    const auto& level = Of(classId);
    auto average = ((limits.window - 1) * level.average + (now - level.last)) / limits.window;
    return std::min<std::int64_t>(average, limits.max);
}

RateVerdict RateMeter::Count(int classId, std::int64_t now) {
    const auto& limits = Limits(classId);
    auto& level = Of(classId);
    level.average = After(classId, now);
    level.last = now;
    auto before = level.state;
    if (!level.forced) {
        if (level.average < limits.limit)
            level.state = RateCode::Limit;
        else if (level.average >= limits.clear)
            level.state = RateCode::Clear;
        else if (level.average < limits.alert && level.state == RateCode::Clear)
            level.state = RateCode::Alert;
    }
    RateVerdict verdict;
    if (level.state != before) verdict.notice = level.state;
    verdict.drop = level.state == RateCode::Limit;
    verdict.disconnect = level.average < limits.disconnect;
    return verdict;
}

bool RateMeter::Recover(int classId, std::int64_t now) {
    auto& level = Of(classId);
    if (level.forced || level.state == RateCode::Clear || After(classId, now) < Limits(classId).clear)
        return false;
    level.state = RateCode::Clear;
    return true;
}

void RateMeter::Force(int classId, RateCode code) {
    auto& level = Of(classId);
    level.state = code;
    level.forced = code != RateCode::Clear;
}

std::string RateMeter::ClassBytes(int classId, bool longForm, std::int64_t now) const {
    const auto& limits = Limits(classId);
    const auto& level = Of(classId);
    auto bytes = WordToStr(classId) + Long(limits.window) + Long(limits.clear) + Long(limits.alert) +
                 Long(limits.limit) + Long(limits.disconnect) + Long(level.average) + Long(limits.max);
    if (longForm) bytes += Long(now - level.last) + ByteToStr(level.state == RateCode::Limit ? 1 : 0);
    return bytes;
}

std::string RateMeter::Answer(bool longForm, std::int64_t now, bool asElsewhere) const {
    auto bytes = WordToStr(5);
    for (int classId = 1; classId <= 5; ++classId) bytes += ClassBytes(classId, longForm, now);
    for (int classId = 1; classId <= 5; ++classId) bytes += GroupBytes(classId, asElsewhere);
    return bytes;
}

} // namespace halyard
