#pragma once

// A request to ban somebody, or to let them in again, that came to nothing and is to be made again: what was
// asked for, and why.

#include "base/BanKind.h"
#include "base/Cause.h"
#include "base/Departure.h"

#include <cstdint>
#include <string>

namespace halyard {

class Options;

struct KeptBan {
    BanKind kind{};
    std::string name, other; ///< as TillerSock::BanUser takes them
    std::string room;        ///< its name; its socket slot will be another
    std::int16_t exchange = 0;
    Departure guard{}; ///< that keeps it
    RuleKind rule = RuleKind::None;
    std::string entry;       ///< of the rule
    std::int64_t since = 0;  ///< ms
    std::int64_t from = 0;   ///< it isn't asked again before, ms
    bool wentOut = false;    ///< without an answer: it may have been done all the same
    int unanswered = 0;      ///< how often nothing came, though the room was there
    std::int32_t lastId = 0; ///< under which it went out last
    bool IsOf(const KeptBan& other) const;
};

/// Whether a ban that was wanted before still is: its rule is on and its entry on the list, and nobody has
/// made the person immune.
bool IsStillWanted(const KeptBan& ban, const Options& options);

} // namespace halyard
