#pragma once

// Who made something happen, told from the desk's causes. What follows from a request's answer has the origin
// of the request.

#include "base/Cause.h"

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>

namespace halyard {

/// An op by name, a rule by its entry, or what else the cause was.
struct Origin {
    CauseKind kind = CauseKind::Unknown;
    RuleKind rule = RuleKind::None;
    std::string op;    ///< as the wire spells them; empty for none
    std::string entry; ///< of the rule, the control's name, the file's path
};

class Origins {
  public:
    static constexpr std::size_t MostKept = 1000; ///< requests

    /// Of what happens now.
    Origin Now(const Telling& telling) const;
    /// Remembers that of a request; the older one of the same id is forgotten.
    void Keep(std::int32_t request, const Origin& origin);

  private:
    std::unordered_map<std::int32_t, Origin> kept;
    std::deque<std::int32_t> order;
};

} // namespace halyard
