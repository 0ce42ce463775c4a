#pragma once

// What the bridge does by the desk's own panels and windows, with all that follows there: counts, lines in
// the rooms, lists that are shown. surface/ implements it; what needs no panel the bridge asks of the control
// itself.

#include "base/News.h"
#include "rooms/BanRequest.h"

#include <cstdint>
#include <string>

namespace halyard {

class Doors {
  public:
    virtual ~Doors() = default;

    /// One of the seven lists of names and words, as its panel adds to it or takes from it. True when `entry`
    /// is on the list afterwards, or no longer is; another list than the seven gives false.
    virtual bool AddEntry(ListName list, const std::string& entry) = 0;
    virtual bool RemoveEntry(ListName list, const std::string& entry) = 0;
    /// An option by its key of the settings file, set as reading its line sets it; or "perms:NAME", "ccom:N"
    /// and "chatsend:N" with N from 0. False when there is none of that key.
    virtual bool SetOption(const std::string& key, const std::string& value) = 0;
    /// As the room's console bans; `room` is a socket slot.
    virtual BanOutcome Ban(std::int16_t room, const std::string& name) = 0;
    /// As the panel of eject lists lets in again.
    virtual BanOutcome Unban(std::int16_t room, const std::string& name) = 0;
};

} // namespace halyard
