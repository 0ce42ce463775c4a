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

void CheckJoiner(const CommandContext& context, std::int16_t intChatIndex, const std::string& name) {
    const auto& options = context.options;
    auto& control = context.control;
    if (options.AutobanLevel == 1) {
        auto entry = options.Autobans.FirstMatch(name);
        if (!entry.empty()) {
            control.BanUser(name, BanKind::Autoban, intChatIndex, entry);
            return;
        }
    }
    if (options.AutobanLevel == 2)
        control.BanUser(name, BanKind::Autoban, intChatIndex, Everybody); // and the next tests run
    if (options.BanAllICQs && IsNumeric(name))
        control.BanUser(name, BanKind::ICQ, intChatIndex);
    else if (options.CharBanOn && name.size() == static_cast<std::size_t>(options.CharBanNum))
        control.BanUser(name, BanKind::Char, intChatIndex);
}

} // namespace

void CommandEngine::UserJoinedChat(std::int16_t intChatIndex, const std::string& strUser) {
    auto room = context.control.Room(intChatIndex);
    if (!room) return;
    context.counters.AddAction("User joined in chat '" + room->ChatName + "': " + strUser);
    context.host.AddConsoleUser(intChatIndex, strUser);
    auto name = NormalizeName(strUser);
    if (room->JoinTimerEnabled() || CheckCollection(name, context.options.Immunes)) return;
    CheckJoiner(context, intChatIndex, name);
}

void CommandEngine::UserLeftChat(std::int16_t intChatIndex, const std::string& strUser) {
    auto room = context.control.Room(intChatIndex);
    if (!room) return;
    context.counters.AddAction("User left in chat '" + room->ChatName + "': " + strUser);
    context.host.RemoveConsoleUser(intChatIndex, strUser);
    auto& options = context.options;
    if (!options.AutoOwner || room->PeopleHere.Count() >= 2) return;
    // Alone: the bot leaves and comes back, which makes it the owner. The option serves for one attempt.
    context.counters.UpdateStat("totalautoownerattempt", true);
    auto strChatName = room->ChatName;
    auto intExchange = room->Exchange;
    options.AutoOwner = false;
    options.Controls.chkAutoOwner.SetValue(0);
    context.control.LeaveChat(intChatIndex);
    context.control.JoinChat(strChatName, intExchange, 0);
}

void BanForWords(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line) {
    const auto& options = context.options;
    auto& control = context.control;
    if (CheckCollection(strUserNorm, options.Immunes)) return;
    if (options.WordBanAll) control.BanUser(strUserNorm, BanKind::Autoword, line.intChatIndex, Everybody);
    if (options.WordBanAll || !options.WordBanOn) return;
    auto word = options.Autowords.FirstWordIn(options.WordBanHTML ? line.raw : line.stripped);
    if (!word.empty())
        control.BanUser(strUserNorm, BanKind::Autoword, line.intChatIndex, Replace(word, "<", "&lt;"));
}

void CommandEngine::ScanAutobansOnUnrate(std::int16_t intChatColIndex) {
    const auto& options = context.options;
    auto room = context.control.Chat.Item(intChatColIndex);
    if (!room || !options.ABOnUnrate) return;
    for (const auto& name : room->PeopleHere) {
        if (CheckCollection(name, options.Immunes)) continue;
        for (const auto& entry : options.Autobans.AllMatches(name)) // one ban for each entry, on purpose
            context.control.BanUser(name, BanKind::Autoban, room->ChatIndex, entry);
    }
}

} // namespace halyard
