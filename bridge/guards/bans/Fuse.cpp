#include "bridge/guards/bans/Fuse.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/Ledger.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"

#include <array>
#include <utility>

namespace halyard {

namespace {

constexpr std::string_view FuseHead = "fuse ";
constexpr std::int64_t FuseMinute = 60'000;
constexpr std::int64_t WholeDay = 86'400'000;
constexpr std::size_t MostAsked = 500; ///< at a time; a rule that hits more is a raid, or goes off later

std::string FuseKey(const Fuse::Entry& entry) {
    return std::string(FuseHead) + std::to_string(static_cast<int>(entry.rule)) + " " + entry.text;
}

/// Those of the names upon whom something was done before this moment, ms since 1970.
void KnownBefore(Connection& ledger, const std::vector<std::string>& names, std::int64_t moment,
                 std::set<std::string>& known) {
    for (const auto& name : names) {
        auto& row = ledger.Prepare("SELECT 1 FROM acts WHERE at < ?2 AND person = "
                                   "(SELECT id FROM persons WHERE key = ?1) LIMIT 1");
        row.Bind(1, ToUtf8(name)).Bind(2, moment);
        if (row.Step()) known.insert(name);
        row.Reset();
    }
}

} // namespace

std::string WordsOf(const Fuse::Entry& entry) {
    static constexpr std::array<const char*, 7> rules{
        "rule", "autoban", "autoword", "ghost ban", "ban of ICQ names", "ban by length", "lock"};
    const std::string rule = std::string("the ") + rules[static_cast<std::size_t>(entry.rule)];
    return entry.text.empty() ? rule : rule + " \"" + entry.text + "\"";
}

Fuse::Fuse(const GuardHands& hands, GuardsFile& file)
    : hands(hands), file(file), timer(hands.platform.NewTimer()) {
    timer->SetInterval(LookPause);
    timer->onTick = [this] {
        timer->SetEnabled(false);
        LookUp();
    };
}

bool Fuse::LetsAct(RuleKind rule, const std::string& entry, std::int16_t intChatIndex,
                   const std::string& name) {
    const Entry met{rule, entry};
    auto& control = hands.control;
    if (paused.contains(met) && control.Guarded(Departure::RunawayFuse, intChatIndex, name)) return false;
    if (asked.size() < MostAsked && hands.ledger()) {
        asked.push_back({met, name, hands.platform.Milliseconds()});
        timer->SetEnabled(true);
    }
    return true;
}

void Fuse::LookUp() {
    auto* ledger = hands.ledger();
    const auto acted = std::exchange(asked, {});
    if (!ledger) return;
    std::vector<std::string> names;
    for (const auto& each : acted) names.push_back(each.name);
    const auto now = hands.platform.CalendarMilliseconds();
    const auto known = std::make_shared<std::set<std::string>>();
    ledger->Read([known, names, midnight = now - now % WholeDay](
                     Connection& connection) { KnownBefore(connection, names, midnight, *known); },
                 [this, known, acted, alive = std::weak_ptr(life)](const DatabaseResult&) {
                     if (!alive.expired()) Count(acted, *known);
                 });
}

void Fuse::Count(const std::vector<Looked>& acted, const std::set<std::string>& known) {
    const auto now = hands.platform.Milliseconds();
    const auto isOld = [&](const auto& each) { return now - each.second > minutes * FuseMinute; };
    for (const auto& each : acted)
        if (known.contains(each.name) && !paused.contains(each.entry))
            counts[each.entry][each.name] = each.at;
    std::vector<std::pair<Entry, std::size_t>> tooMany;
    for (auto& [entry, names] : counts) {
        std::erase_if(names, isOld);
        if (names.size() > static_cast<std::size_t>(persons)) tooMany.emplace_back(entry, names.size());
    }
    std::erase_if(counts, [](const auto& each) { return each.second.empty(); });
    for (const auto& [entry, count] : tooMany) GoOff(entry, count);
}

/// Off, it only counts that it would have.
void Fuse::GoOff(const Entry& entry, std::size_t count) {
    counts.erase(entry);
    if (!hands.control.Guarded(Departure::RunawayFuse)) return;
    const auto since = hands.platform.CalendarMilliseconds() - (minutes + 1) * FuseMinute;
    paused[entry] = since;
    file.Put(FuseKey(entry), std::to_string(since));
    auto words = WordsOf(entry) + " acted on " + std::to_string(count) +
                 " persons known from earlier days within " + std::to_string(minutes) +
                 " minutes, and pauses. Take its acts back, or let it go on.";
    words.front() = 'T';
    hands.raise({.guard = Departure::RunawayFuse, .subject = WordsOf(entry), .words = words});
    if (onChanged) onChanged();
}

void Fuse::Resume(const Entry& entry) {
    if (paused.erase(entry) == 0) return;
    file.Drop(FuseKey(entry));
    hands.raise({.guard = Departure::RunawayFuse,
                 .subject = WordsOf(entry),
                 .words = "It goes on: " + WordsOf(entry) + ".",
                 .over = true});
    if (onChanged) onChanged();
}

void Fuse::Restore(const GuardsFile::Rows& rows) {
    for (const auto& [key, text] : rows) {
        if (!key.starts_with(FuseHead)) continue;
        const auto rest = key.substr(FuseHead.size());
        const auto blank = rest.find(' ');
        const auto rule = ToInt16(rest.substr(0, blank)).value_or(0);
        if (blank == std::string::npos || rule <= 0 || rule > static_cast<int>(RuleKind::Chars))
            file.Drop(key);
        else
            paused[{static_cast<RuleKind>(rule), rest.substr(blank + 1)}] =
                static_cast<std::int64_t>(ToNumber(text).value_or(0));
    }
    if (!paused.empty() && onChanged) onChanged();
}

} // namespace halyard
