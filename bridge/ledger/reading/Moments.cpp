#include "bridge/ledger/reading/Moments.h"

#include <charconv>
#include <chrono>
#include <ctime>

namespace halyard {

namespace {

constexpr std::int64_t Second = 1000;
constexpr std::int64_t Minute = 60 * Second;
constexpr std::int64_t Hour = 60 * Minute;
constexpr std::int64_t Day = 24 * Hour;
/// More units than this are no time that anybody means.
constexpr std::int64_t MostUnits = 1'000'000;

std::string Shown(std::int64_t utcMilliseconds, const char* form) {
    const auto seconds =
        static_cast<std::time_t>(utcMilliseconds / Second - (utcMilliseconds % Second < 0 ? 1 : 0));
    std::tm parts{};
    char text[80];
    if (localtime_r(&seconds, &parts) == nullptr || std::strftime(text, sizeof text, form, &parts) == 0)
        return std::to_string(utcMilliseconds);
    return text;
}

/// Takes exactly `digits` digits and then `end` (0: nothing) off the front.
bool TakeDigits(std::string_view& text, std::size_t digits, char end, int& number) {
    if (text.size() < digits) return false;
    const auto [stop, failure] = std::from_chars(text.data(), text.data() + digits, number);
    if (failure != std::errc() || stop != text.data() + digits || number < 0) return false;
    text.remove_prefix(digits);
    if (end == 0) return true;
    if (!text.starts_with(end)) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<std::int64_t> Before(std::string_view text, std::int64_t now) {
    std::int64_t count = 0;
    const auto [stop, failure] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (failure != std::errc() || stop + 1 != text.data() + text.size() || count < 0 || count > MostUnits)
        return std::nullopt;
    switch (*stop) {
    case 'd': return now - count * Day;
    case 'h': return now - count * Hour;
    case 'm': return now - count * Minute;
    default: return std::nullopt;
    }
}

} // namespace

std::string ShownMoment(std::int64_t utcMilliseconds) {
    return Shown(utcMilliseconds, "%Y-%m-%d %H:%M:%S %Z");
}

std::string WrittenMoment(std::int64_t utcMilliseconds) {
    const auto seconds = static_cast<std::time_t>(utcMilliseconds / Second);
    std::tm parts{};
    char text[40];
    if (gmtime_r(&seconds, &parts) == nullptr ||
        std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts) == 0)
        return {};
    return text;
}

std::string ShownClock(std::int64_t utcMilliseconds) { return Shown(utcMilliseconds, "%H:%M:%S"); }

std::string ShownDay(std::int64_t utcMilliseconds) { return Shown(utcMilliseconds, "%Y-%m-%d"); }

std::optional<std::int64_t> ReadMoment(std::string_view text, std::int64_t now) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    auto rest = text;
    if (!TakeDigits(rest, 4, '-', year) || !TakeDigits(rest, 2, '-', month) || !TakeDigits(rest, 2, 0, day))
        return Before(text, now);
    bool utc = false;
    if (!rest.empty()) {
        if (!rest.starts_with('T')) return std::nullopt;
        rest.remove_prefix(1);
        if (!TakeDigits(rest, 2, ':', hour) || !TakeDigits(rest, 2, 0, minute)) return std::nullopt;
        if (rest.starts_with(':')) {
            rest.remove_prefix(1);
            if (!TakeDigits(rest, 2, 0, second)) return std::nullopt;
        }
        utc = rest == "Z";
        if (!utc && !rest.empty()) return std::nullopt;
    }
    const std::chrono::year_month_day date(std::chrono::year{year},
                                           std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)});
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    if (utc)
        return std::chrono::sys_days(date).time_since_epoch().count() * Day + hour * Hour + minute * Minute +
               second * Second;
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = -1; // as the zone has it on that day
    return static_cast<std::int64_t>(std::mktime(&parts)) * Second;
}

} // namespace halyard
