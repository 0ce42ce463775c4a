#pragma once

// Asked before a rule of the desk's own acts on somebody: whether the entry that was met is let go on.

#include "base/Cause.h"

#include <cstdint>
#include <string>

namespace halyard {

class RuleFuse {
  public:
    virtual ~RuleFuse() = default;

    /// False: nothing is done. `entry` is the list's, "*ALL*", the number of characters, or empty where the
    /// rule has none; `name` whom it met, normalised; `intChatIndex` the room's socket slot.
    virtual bool LetsAct(RuleKind rule, const std::string& entry, std::int16_t intChatIndex,
                         const std::string& name) = 0;
};

} // namespace halyard
