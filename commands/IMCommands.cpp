// Commands that an op sends by instant message, as "room:command". Answers go to the room.

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

namespace halyard {

namespace {

/// The room of this name, or at this position in Chat; null when there is neither.
std::shared_ptr<Chats> RoomMeant(const TillerSock& control, const std::string& text) {
    if (auto room = RoomByName(control, text)) return room;
    auto position = ToInt16(text);
    return position ? control.Chat.Item(*position) : nullptr;
}

} // namespace

void CommandEngine::InstantMessage(const std::string& strUser, const std::string& strMessage) {
    auto stripped = StripHTML(strMessage);
    context.host.IncomingIM(strUser, stripped);
    const auto& options = context.options;
    auto& control = context.control;
    auto name = NormalizeName(strUser);
    const auto passOver = [&] {
        if (auto* news = control.Tell().news) news->MessagePassedOver(strUser, strMessage);
    };
    if (!options.IMComsOn || !CheckCollection(name, options.Ops)) return passOver();
    auto parts = Split(NormalizeName(stripped), ":", 2);
    if (parts.size() != 2) return passOver();
    const CauseScope scope(control.Tell(), {.kind = CauseKind::OpIM, .who = strUser, .line = strMessage});
    if (auto room = RoomMeant(control, parts[0]))
        ProcessCommand(parts[1], name, room->ChatIndex, control.GetChatIndex(room->ChatIndex),
                       options.Perms.Item(name));
}

} // namespace halyard
