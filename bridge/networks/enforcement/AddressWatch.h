#pragma once

// By the operator's choice: who enters from the address of somebody who is banned. The management is asked
// for the address of each session that enters, and a keyed hash of it is kept for 30 days. Only public
// addresses count, and none from which more than a few names come: that is a proxy's, or a school's.
// Enforcement owns the one.

#include "bridge/networks/enforcement/EnforcementRecord.h"
#include "bridge/networks/enforcement/ManagementLine.h"

#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Chats;

class AddressWatch {
  public:
    using RoomRef = std::weak_ptr<Chats>;
    static constexpr std::size_t MostNames = 5; ///< that share an address and still mean one household

    struct Hooks {
        std::function<bool(const RoomRef& room, const std::string& name)> isListed;
        std::function<void(const RoomRef& room, const std::string& name, const std::string& other)> found;
        std::function<void(const std::string& text)> tell;
    };

    AddressWatch(ManagementLine& line, EnforcementRecord& record, Hooks hooks)
        : line(line), record(record), hooks(std::move(hooks)) {}

    /// The management's base URL, which names are kept under.
    void SetPlace(const std::string& base) { at = base; }
    /// `name` has entered the room. Its session is asked after when nothing more urgent waits.
    void Look(const RoomRef& room, const std::string& name);

  private:
    void Compare(const RoomRef& room, const std::string& name, const std::string& address);

    ManagementLine& line;
    EnforcementRecord& record;
    Hooks hooks;
    std::string at;
    bool toldFull = false;
};

} // namespace halyard
