#pragma once

// What a room asks of its owner. Rooms never see the wire, a socket or a window: TillerSock stands behind
// this.

#include "base/Collection.h"
#include "base/News.h"

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class EjectList;

/// Each call may end the room that makes it, as long as the caller of the room holds it to the end of the
/// call.
class RoomHost {
  public:
    virtual ~RoomHost() = default;

    /// Through which the room tells its own facts.
    virtual Telling& Tell() = 0;
    /// Asked where a guard would have the room go another way: whether it does. Tells that it was asked.
    /// `strWho` is whom it is about, empty for none.
    virtual bool Guarded(Departure guard, std::int16_t intChatIndex, const std::string& strWho) = 0;

    /// Ms since some fixed moment, never going back.
    virtual std::int64_t Now() = 0;

    /// Says one line in the room of this socket slot, at once.
    virtual void Say(std::int16_t intChatIndex, const std::string& strLine) = 0;
    /// Sends an eject request for `strUser` under the request id (decimal text) on the room's connection.
    virtual void SendBanRequest(std::int16_t intChatIndex, const std::string& strRequestID,
                                const std::string& strUser) = 0;
    /// Remembers a request of five fields joined by ":" until its reply comes.
    virtual void StoreRequest(const std::string& strRequestID, const std::string& strRecord) = 0;
    /// A request that stood in BanQueue comes to nothing: its record.
    virtual void BanDropped(const std::string& strRecord, DropReason why) = 0;
    /// An unban; never queued.
    virtual void LiftBan(const std::string& strUser, std::int16_t intChatIndex) = 0;
    virtual const Collection<std::shared_ptr<EjectList>>& AllEjectLists() const = 0;
    /// The chatsend text at this number, 1 to 124.
    virtual std::string ChatSendText(int number) const = 0;
    /// Rate class 1 (`intType` 0) or 5 (`intType` 1) of the room was stopped. The name is as the
    /// service reports it.
    virtual void RoomRated(int intType, const std::string& strChatName) = 0;
    /// The same class was lifted by the room's own clock. The name is in lower case without blanks.
    virtual void RoomUnrated(int intType, const std::string& strChatName, std::int16_t intChatIndex) = 0;
};

} // namespace halyard
