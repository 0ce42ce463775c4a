// Every line said in a joined room: what it is looked at for, and in which order.

#include "base/Text.h"
#include "commands/AutoModeration.h"
#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "commands/CommandTable.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"
#include "state/Permissions.h"

#include <optional>

namespace halyard {

namespace {

/// The sender of internal commands, in normalised form. No screenname can have brackets.
constexpr const char* InternalSender = "[manualcommand]";
/// The service itself, speaking of a dice roll: "name rolled ...".
constexpr const char* ServiceSender = "onlinehost";

/// `text` up to the first `mark`, case ignored; the whole text without one.
std::string UpTo(const std::string& text, const std::string& mark) {
    auto at = FindNoCase(text, mark);
    return at == 0 ? text : text.substr(0, at - 1);
}

/// Bans a speaker who isn't listed in the room. False ends the handling of the line. A line of the service is
/// that of the person it names, who becomes `strUserNorm`. Only such a one is looked up among the immunes: on
/// purpose.
bool HandleGhost(const CommandContext& context, std::string& strUserNorm, const ChatLine& line) {
    const auto spared = [&] {
        return context.control.Guarded(Departure::DiceAreNotGhosts, line.intChatIndex, strUserNorm);
    };
    if (strUserNorm == ServiceSender) {
        if (!ContainsNoCase(line.raw, "rolled")) return false;
        strUserNorm = UpTo(NormalizeName(line.stripped), "rolled");
        if (CheckCollection(strUserNorm, context.options.Immunes)) return false;
        if (spared()) return false;
    } else if (CheckCollection(strUserNorm, context.options.Immunes) && spared()) {
        return true;
    }
    BanGhost(context, strUserNorm, line);
    return true;
}

/// The line without trigger or comment; nothing when the trigger is missing. The trigger ends a command.
/// Without comments it has to be the very last character and stays on the end of the last argument: on
/// purpose.
std::optional<std::string> CommandText(const CcomTable& ccoms, const std::string& normalised) {
    const auto& trigger = ccoms.strTrigger;
    if (trigger.empty()) return ccoms.blnCcomComments ? UpTo(normalised, "/") : normalised;
    if (!ContainsNoCase(normalised, trigger)) return std::nullopt;
    if (ccoms.blnCcomComments) return UpTo(normalised, trigger);
    if (normalised.substr(normalised.size() - 1) != trigger) return std::nullopt;
    return normalised;
}

/// True when something would follow upon a line of the bot's own: a ban, or a command.
bool WouldHearItself(const CommandContext& context, const Chats& room, const std::string& strUserNorm,
                     const ChatLine& line) {
    const auto& options = context.options;
    if (options.AutobanGhosts && !CheckCollection(strUserNorm, room.PeopleHere)) return true;
    if (CheckCollection(strUserNorm, options.Ops)) {
        const auto strCommand = CommandText(options.Ccoms, NormalizeName(line.stripped));
        if (!strCommand) return false;
        if (ParseCommand(options.Ccoms, *strCommand).index != ParsedCommand::None) return true;
    }
    return MeetsWords(context, strUserNorm, line);
}

/// What a person wrote behind the comment mark; empty when there is none.
std::string_view ReasonIn(const CcomTable& ccoms, std::string_view stripped) {
    if (!ccoms.blnCcomComments) return {};
    const std::string_view mark = ccoms.strTrigger.empty() ? "/" : std::string_view(ccoms.strTrigger);
    const auto at = FindNoCase(stripped, mark);
    if (at == 0) return {};
    const auto reason = stripped.substr(at - 1 + mark.size());
    const auto first = reason.find_first_not_of(' ');
    return first == reason.npos ? std::string_view() : reason.substr(first);
}

} // namespace

void CommandEngine::ChatMessage(std::int16_t intChatIndex, const std::string& strUser,
                                const std::string& strMessage) {
    HandleLine(intChatIndex, strUser, strMessage, true);
}

void CommandEngine::HandleLine(std::int16_t intChatIndex, const std::string& strUser,
                               const std::string& strMessage, bool fromWire) {
    const auto& options = context.options;
    ChatLine line{strMessage, StripHTML(strMessage), intChatIndex, strUser};
    context.host.ConsoleMessage(intChatIndex, strUser, line.stripped);
    auto intChatColIndex = context.control.GetChatIndex(intChatIndex);
    auto room = context.control.Chat.Item(intChatColIndex);
    if (!room || room->JoinTimerEnabled()) return;

    auto strUserNorm = NormalizeName(strUser);
    if (fromWire && strUserNorm == NormalizeName(context.control.SignOnName()) &&
        WouldHearItself(context, *room, strUserNorm, line) &&
        context.control.Guarded(Departure::OwnLinesAreNotHeard, intChatIndex, strUserNorm))
        return;
    bool isOp = CheckCollection(strUserNorm, options.Ops);
    if (options.AutobanGhosts && !CheckCollection(strUserNorm, room->PeopleHere) &&
        !HandleGhost(context, strUserNorm, line))
        return;
    bool internal = strUserNorm == InternalSender;
    // A name from the wire with brackets, that of a dice roll too, is nobody's of the desk's own.
    if (fromWire && (isOp || internal) && strUserNorm.find_first_of("[]") != std::string::npos &&
        context.control.Guarded(Departure::NamesAreNoCommands, intChatIndex, strUserNorm))
        isOp = internal = false;
    if (isOp || internal) {
        auto strCommand = CommandText(options.Ccoms, NormalizeName(line.stripped));
        if (!strCommand) return; // an op's line without the trigger is not even searched for autowords
        const CauseScope scope(context.control.Tell(),
                               {.kind = internal ? CauseKind::Internal : CauseKind::OpLine,
                                .room = intChatIndex,
                                .who = strUser,
                                .line = strMessage,
                                .reason = ReasonIn(options.Ccoms, line.stripped)});
        ProcessCommand(*strCommand, strUserNorm, intChatIndex, intChatColIndex,
                       internal ? FullPerms : options.Perms.Item(strUserNorm));
    }
    BanForWords(context, strUserNorm, line);
}

} // namespace halyard
