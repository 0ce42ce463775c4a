#pragma once

// The part of bridge.toml that Halyard writes itself: which network was chosen where, what it may do with the
// management of each, to which hosts roasted passwords may go, and what is wanted of the ledger, the guards,
// the alarms and the watch. Texts are Windows-1252.

#include "bridge/TomlFields.h"
#include "bridge/guards/GuardTerms.h"
#include "bridge/ledger/LedgerTerms.h"
#include "bridge/networks/ManagementTerms.h"
#include "bridge/watch/WatchTerms.h"
#include "bridge/watch/alarms/AlarmTerms.h"

#include <optional>
#include <string>
#include <vector>

namespace halyard {

struct NetworkChoice {
    std::string file;    ///< the settings file's canonical path
    std::string account; ///< the account's normalised name
    std::string network;
    bool operator==(const NetworkChoice&) const = default;
};

struct NetworkManagement {
    std::string network;
    ManagementTerms terms;
    bool refused = false; ///< the header came from a file that others can read; kept, but not to be used
    bool operator==(const NetworkManagement&) const = default;
};

struct RoastingPermit {
    std::string network;
    std::string host; ///< in small letters
    bool operator==(const RoastingPermit&) const = default;
};

/// The newest stand last. Each list holds at most 1,000.
struct OwnPart {
    static constexpr std::size_t Most = 1000;

    std::string last; ///< the network chosen last; empty when none was
    std::vector<NetworkChoice> chosen;
    std::vector<NetworkManagement> management;
    std::vector<RoastingPermit> roasting;
    LedgerTerms ledger;
    GuardTerms guards;
    WatchTerms watch;
    AlarmTerms alarms;

    // Each puts its entry last in the place of an older one, and drops the oldest where there are too many.
    // What couldn't be read back is refused: false, and nothing has changed.
    bool Choose(const NetworkChoice& choice);
    bool SetManagement(const NetworkManagement& management);
    bool Permit(const RoastingPermit& permit);
    bool SetLedger(const LedgerTerms& terms);
    bool SetAlarms(const AlarmTerms& terms);

    bool operator==(const OwnPart&) const = default;
};

/// What a network's name is, in each part of the file: 1 to 100 characters, not all of them blanks.
inline constexpr TextBounds NetworkNameBounds{.longest = 100};
bool IsNetworkName(std::string_view text);

/// What `file`, the tables of the own part alone, says. What is wrong is told and left out.
OwnPart ReadOwnPart(const TomlValue& file, TomlMistakes& mistakes);

/// The text that reads back as `own`, in at most `limit` bytes, without the oldest choices that don't fit.
/// Nothing when the rest alone is too long.
std::optional<std::string> OwnPartText(const OwnPart& own, std::size_t limit);

} // namespace halyard
