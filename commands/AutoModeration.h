#pragma once

// What the bot does by itself about a line.

#include "commands/CommandContext.h"

#include <cstdint>
#include <string>

namespace halyard {

/// A line said in a room.
struct ChatLine {
    const std::string& raw; ///< with its HTML
    std::string stripped;
    std::int16_t intChatIndex;
    const std::string& sender; ///< as the line came
};

/// Bans the speaker, unless immune, for the first autoword in the line, or for speaking at all when every
/// speaker is to be banned. The line keeps its blanks here, so a stored word meets only text that has none.
void BanForWords(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line);

/// Whether BanForWords would.
bool MeetsWords(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line);

/// Bans a speaker who isn't in the room's list.
void BanGhost(const CommandContext& context, const std::string& strUserNorm, const ChatLine& line);

} // namespace halyard
