#include "oscar/wire/RateTable.h"

#include "oscar/wire/ModOscarFunctions.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t ShortForm = 30; // bytes of a class with its id
constexpr std::size_t LongForm = 35;

std::size_t TakeWord(std::string_view& rest) {
    const auto word = StrToWord(rest).value_or(0);
    rest.remove_prefix(std::min<std::size_t>(rest.size(), 2));
    return static_cast<std::size_t>(word);
}

/// True when `groups` is exactly `count` groups.
bool Fits(std::string_view groups, std::size_t count) {
    for (; count > 0; --count) {
        if (groups.size() < 4) return false;
        groups.remove_prefix(2);
        const auto bytes = TakeWord(groups) * 4;
        if (groups.size() < bytes) return false;
        groups.remove_prefix(bytes);
    }
    return groups.empty();
}

} // namespace

RateTable RateTable::Read(std::string_view body) {
    RateTable table;
    const auto count = TakeWord(body);
    const auto behind = [&](std::size_t form) { return body.substr(std::min(body.size(), count * form)); };
    const bool isShort = Fits(behind(ShortForm), count) && !Fits(behind(LongForm), count);
    for (auto groups = behind(isShort ? ShortForm : LongForm); groups.size() >= 4;) {
        const auto classId = static_cast<int>(TakeWord(groups));
        for (auto pairs = TakeWord(groups); pairs > 0 && groups.size() >= 4; --pairs) {
            const auto family = static_cast<std::uint32_t>(TakeWord(groups));
            table.classes[family << 16 | static_cast<std::uint32_t>(TakeWord(groups))] = classId;
        }
    }
    return table;
}

int RateTable::ClassOf(std::uint32_t familyAndSubtype) const {
    const auto found = classes.find(familyAndSubtype);
    return found == classes.end() ? 1 : found->second;
}

} // namespace halyard
