#include "bridge/guards/bans/PartTeller.h"

#include <algorithm>

namespace halyard {

void PartTeller::PartHitNobody(std::int16_t /*room*/, const std::string& op, const std::string& part,
                               const std::vector<std::string>& fits) {
    std::string text = "\"" + part +
                       "\" hits nobody: a part of a name spares ops, immunes and the bot. "
                       "Give the whole name to mean one of them:";
    for (std::size_t index = 0; index < std::min(fits.size(), MostNames); ++index)
        text += (index == 0 ? " " : ", ") + fits[index];
    text += fits.size() > MostNames ? " and " + std::to_string(fits.size() - MostNames) + " more." : ".";
    if (op.find_first_of("[]") != std::string::npos) return hands.tell(text); // a command of the operator's
    messages.Send(op, text);
}

} // namespace halyard
