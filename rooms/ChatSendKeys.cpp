#include "rooms/ChatSendKeys.h"

#include <algorithm>
#include <array>

namespace halyard {

namespace {

using std::string_view;

constexpr auto mergeSameOther =
    std::to_array<string_view>({"autobanned", "autowordbanned", "tbanned", "untbanned", "islbanned"});

// "autogbanned" and "lockedbanunban" have no caller; "ghostbanned" has one and is missing on purpose: an
// automatic ghost ban says nothing in the room.
constexpr auto merge = std::to_array<string_view>({
    "oped",           "alreadyop",      "notop",          "notaw",         "unoped",       "immed",
    "alreadyimm",     "unimmed",        "notimm",         "abed",          "alreadyab",    "unabed",
    "notab",          "awed",           "alreadyaw",      "unawed",        "immunekick",   "immuneban",
    "immunegban",     "immunetban",     "lockoped",       "alreadylockop", "locknotop",    "lockimmed",
    "alreadylockimm", "locknotimm",     "lockbanned",     "locknotban",    "unlockbanned", "notlockban",
    "unlockimmed",    "notlockimm",     "unlocknotimm",   "unlockoped",    "notlockop",    "unlocknotop",
    "lockedopunop",   "lockedimmunimm", "lockedbanunban", "banned",        "unbanned",     "gbanned",
    "kicked",         "autogbanned",    "charbanned",     "icqbanned",     "alreadytban",
});

constexpr auto countsBans =
    std::to_array<string_view>({"banned", "gbanned", "kicked", "autogbanned", "charbanned", "icqbanned"});

constexpr auto oneByOne = std::to_array<string_view>({"cb", "sc", "icq", "bp", "bl"});

constexpr auto dropWhilePaused =
    std::to_array<string_view>({"help", "noperm", "invalidsize", "uinfo", "status", "info"});

constexpr auto unpaced = std::to_array<string_view>({"msgrated", "banrated"});

template <typename Keys>
bool Holds(const Keys& keys, string_view key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

} // namespace

SendGroup SendGroupOf(string_view strType) {
    if (Holds(mergeSameOther, strType)) return SendGroup::MergeSameOther;
    if (Holds(merge, strType)) return SendGroup::Merge;
    if (Holds(oneByOne, strType)) return SendGroup::OneByOne;
    if (Holds(dropWhilePaused, strType)) return SendGroup::DropWhilePaused;
    if (Holds(unpaced, strType)) return SendGroup::Unpaced;
    return SendGroup::Unknown;
}

bool CountsBans(string_view strType) { return Holds(countsBans, strType); }

} // namespace halyard
