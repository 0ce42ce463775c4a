#pragma once

// Opened by a guard around what it does: its acts have the guard as their cause.

#include "oscar/TillerSock.h"

namespace halyard {

class GuardScope {
  public:
    GuardScope(TillerSock& control, Departure guard, std::int16_t room = 0, std::string_view who = {})
        : scope(control.Tell(),
                {.kind = CauseKind::Guard, .room = room, .who = who, .entry = TextOf(guard).name}) {}

  private:
    CauseScope scope;
};

} // namespace halyard
