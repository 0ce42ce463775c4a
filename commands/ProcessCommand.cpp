// From a line that may be a command to the branch that carries it out.

#include "commands/Branches.h"
#include "commands/CommandEngine.h"
#include "commands/CommandTable.h"
#include "oscar/TillerSock.h"
#include "state/Counters.h"
#include "state/Options.h"

namespace halyard {

void CommandEngine::ProcessCommand(const std::string& strCommand, const std::string& strUser,
                                   std::int16_t intChatIndex, std::int16_t intChatColIndex,
                                   const std::string& strPerms) {
    auto room = context.control.Chat.Item(intChatColIndex);
    if (!room) return;
    context.counters.UpdateStat("totalcommand", true);
    auto parsed = ParseCommand(context.options.Ccoms, strCommand);
    CommandCall call{parsed.index,           strUser, intChatIndex, intChatColIndex, strPerms,
                     std::move(parsed.rest), room};
    if (call.index == ParsedCommand::None) {
        context.counters.UpdateStat("totalcommand", false); // it was none: the count is taken back
    } else if (call.index == ParsedCommand::Help) {
        branches::Help(context, call);
    } else if (!CommandAllowed(strPerms, call.index)) {
        Reply(context, call, strUser, RuleOf(call.index).noperm, "", "noperm", "msg3");
    } else {
        RuleOf(call.index).branch(context, call);
    }
}

} // namespace halyard
