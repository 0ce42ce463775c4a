#include "bridge/guards/bans/KeptBan.h"

#include "base/Text.h"
#include "state/Options.h"

namespace halyard {

namespace {

constexpr const char* All = "*ALL*";

} // namespace

bool KeptBan::IsOf(const KeptBan& other) const {
    return exchange == other.exchange && SameName(name, other.name) && SameName(room, other.room);
}

bool IsStillWanted(const KeptBan& ban, const Options& options) {
    if (!options.Immunes.Item(NormalizeName(ban.name)).empty()) return false;
    switch (ban.rule) {
    case RuleKind::Autoban:
        if (ban.entry == All) return options.AutobanLevel == 2;
        return options.AutobanLevel != 0 && options.Autobans.Position(ban.entry) != 0;
    case RuleKind::Autoword:
        if (ban.entry == All) return options.WordBanAll;
        return options.WordBanOn && options.Autowords.Position(ban.entry) != 0;
    case RuleKind::Ghost: return options.AutobanGhosts;
    case RuleKind::ICQ: return options.BanAllICQs;
    case RuleKind::Chars: return options.CharBanOn && std::to_string(options.CharBanNum) == ban.entry;
    case RuleKind::Lock:
    case RuleKind::None: break;
    }
    return true;
}

} // namespace halyard
