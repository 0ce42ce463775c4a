#pragma once

// The steps of a check, in order: what each asks, and what it makes of the answer or of silence.

#include "bridge/networks/check/CheckEars.h"
#include "bridge/networks/check/NetworkCheck.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

/// What the steps of one check share. `control` is the check's own, or the bot's.
struct CheckRun {
    const NetworkCheck::Terms& terms;
    TillerSock& control;
    CheckEars& ears;
    Platform& platform;
    std::string skipSignOn; ///< why signing on would be no use after the wrong password; empty when it is
    std::string banName;    ///< made up
    bool banStands = false; ///< asked for, neither refused nor lifted

    /// Asks for the ban's end (000E 0025), once, while it may stand.
    void LiftBan();
};

struct Finding {
    CheckVerdict verdict = CheckVerdict::Odd;
    std::string detail;
};

/// `begin` asks, or finds at once that it can't; `look` runs after each thing that was heard, and finds
/// nothing as long as the answer isn't there; `silence` is what it makes of ten seconds without one.
struct CheckStep {
    std::string what;
    std::function<std::optional<Finding>()> begin;
    std::function<std::optional<Finding>()> look;
    std::function<Finding()> silence;
};

/// Signed off: wrong password, sign-on, room, people, rates, talk, user information, message, bans.
std::vector<CheckStep> OwnSteps(CheckRun& run);
/// Over the bot's session: room, people, rates, user information, bans, none of which the bot hears as its
/// own.
std::vector<CheckStep> StandingSteps(CheckRun& run);

/// What was seen of the habits that a network's ways are there for: a row for each that was met, and for each
/// that would have been.
std::vector<CheckRow> WayRows(const CheckHeard& heard, const Network& network);

} // namespace halyard
