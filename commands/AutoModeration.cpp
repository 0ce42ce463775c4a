// Who enters, who leaves, what is said, and who is there when the rate limit lifts.

#include "commands/AutoModeration.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "state/Counters.h"
#include "state/Options.h"

namespace halyard {

namespace {

/// Stands for the entry when everybody is banned.
constexpr const char* Everybody = "*ALL*";

/// Whom a rule met: the name as it is banned, and as it came.
struct Met {
    std::int16_t intChatIndex;
    const std::string& name;
    std::string_view asCame;
    std::string_view line = {}; ///< empty where nothing was said
};

void BanByRule(const CommandContext& context, const Met& met, RuleKind rule, BanKind kind,
               const std::string& entry, const std::string& strOther) {
    const CauseScope scope(context.control.Tell(), {.kind = CauseKind::Rule,
                                                    .rule = rule,
                                                    .room = met.intChatIndex,
                                                    .who = met.asCame,
                                                    .line = met.line,
                                                    .entry = entry});
    context.control.BanUser(met.name, kind, met.intChatIndex, strOther);
}

void CheckJoiner(const CommandContext& context, const Met& met) {
    const auto& options = context.options;
    const auto autoban = [&](const std::string& entry) {
        BanByRule(context, met, RuleKind::Autoban, BanKind::Autoban, entry, entry);
    };
    if (options.AutobanLevel == 1) {
        const auto entry = options.Autobans.FirstMatch(met.name);
        if (!entry.empty()) return autoban(entry);
    }
    if (options.AutobanLevel == 2) autoban(Everybody); // and the next tests run
    if (options.BanAllICQs && IsNumeric(met.name))
        BanByRule(context, met, RuleKind::ICQ, BanKind::ICQ, {}, {});
    else if (options.CharBanOn && met.name.size() == static_cast<std::size_t>(options.CharBanNum))
        BanByRule(context, met, RuleKind::Chars, BanKind::Char, std::to_string(options.CharBanNum), {});
}

} // namespace

void CommandEngine::UserJoinedChat(std::int16_t intChatIndex, const std::string& strUser) {
    auto room = context.control.Room(intChatIndex);
    if (!room) return;
    context.counters.AddAction("User joined in chat '" + room->ChatName + "': " + strUser);
    context.host.AddConsoleUser(intChatIndex, strUser);
    auto name = NormalizeName(strUser);
    if (room->JoinTimerEnabled() || CheckCollection(name, context.options.Immunes)) return;
    CheckJoiner(context, {intChatIndex, name, strUser});
}

void CommandEngine::UserLeftChat(std::int16_t intChatIndex, const std::string& strUser) {
    auto room = context.control.Room(intChatIndex);
    if (!room) return;
    context.counters.AddAction("User left in chat '" + room->ChatName + "': " + strUser);
    context.host.RemoveConsoleUser(intChatIndex, strUser);
    auto& options = context.options;
    if (!options.AutoOwner || room->PeopleHere.Count() >= 2) return;
    const CauseScope alone(context.control.Tell(),
                           {.kind = CauseKind::Service, .room = intChatIndex, .who = strUser});
    // Alone: the bot leaves and comes back, which makes it the owner. The option serves for one attempt.
    context.counters.UpdateStat("totalautoownerattempt", true);
    auto strChatName = room->ChatName;
    auto intExchange = room->Exchange;
    options.AutoOwner = false;
    options.Controls.chkAutoOwner.SetValue(0);
    context.control.LeaveChat(intChatIndex);
    context.control.JoinChat(strChatName, intExchange, 0);
}

bool MeetsWords(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line) {
    const auto& options = context.options;
    if (CheckCollection(strUserNorm, options.Immunes)) return false;
    if (options.WordBanAll || !options.WordBanOn) return options.WordBanAll;
    return !options.Autowords.FirstWordIn(options.WordBanHTML ? line.raw : line.stripped).empty();
}

void BanForWords(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line) {
    const auto& options = context.options;
    if (CheckCollection(strUserNorm, options.Immunes)) return;
    const auto autoword = [&](const std::string& word, const std::string& shown) {
        BanByRule(context, {line.intChatIndex, strUserNorm, line.sender, line.raw}, RuleKind::Autoword,
                  BanKind::Autoword, word, shown);
    };
    if (options.WordBanAll) autoword(Everybody, Everybody);
    if (options.WordBanAll || !options.WordBanOn) return;
    const auto word = options.Autowords.FirstWordIn(options.WordBanHTML ? line.raw : line.stripped);
    if (!word.empty()) autoword(word, Replace(word, "<", "&lt;"));
}

void BanGhost(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line) {
    BanByRule(context, {line.intChatIndex, strUserNorm, line.sender, line.raw}, RuleKind::Ghost,
              BanKind::AutoGhost, {}, {});
}

void CommandEngine::ScanAutobansOnUnrate(std::int16_t intChatColIndex) {
    const auto& options = context.options;
    auto room = context.control.Chat.Item(intChatColIndex);
    if (!room || !options.ABOnUnrate) return;
    for (const auto& name : room->PeopleHere) {
        if (CheckCollection(name, options.Immunes)) continue;
        for (const auto& entry : options.Autobans.AllMatches(name)) // one ban for each entry, on purpose
            BanByRule(context, {room->ChatIndex, name, name}, RuleKind::Autoban, BanKind::Autoban, entry,
                      entry);
    }
}

} // namespace halyard
