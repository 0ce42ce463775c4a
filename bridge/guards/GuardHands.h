#pragma once

// What a guard that lives on the bridge has at hand, besides the control and the desk's doors.

#include "base/Departure.h"

#include <functional>
#include <string>

namespace halyard {

class Doors;
class Ledger;
class Options;
class Platform;
class TillerSock;

/// Something that a guard met and that the operator should know.
struct GuardAlarm {
    Departure guard{};
    std::string subject = {}; ///< a room, an entry; empty for the bot as a whole
    std::string words = {};   ///< one sentence
    bool over = false;        ///< what had rung for this guard and subject has ended
};

/// None of the functions is empty; all that is referred to outlives the guards.
struct GuardHands {
    Platform& platform;
    TillerSock& control;
    Doors& doors;
    std::function<void(const std::string& text)> tell;
    std::function<void(const GuardAlarm&)> raise;
    std::function<Ledger*()> ledger; ///< null while none is kept
    const Options& options;
};

} // namespace halyard
