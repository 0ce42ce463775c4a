#pragma once

// What the desk tells the bridge: one method a fact, told once, where it becomes true, through the Telling of
// base/Cause.h, which also knows why. Every method has an empty body; with nobody listening a fact costs one
// null check. Texts are Windows-1252, one character a byte.

#include "base/BanKind.h"
#include "base/Cause.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

/// What a request about a person asks of a room.
enum class BanRequestKind { Ban, Unban };

/// What became of a request to ban, to let in again or to close a room.
enum class BanVerdict { Accepted, Refused, NotEnforced };

// The numbers of the next two stand in files: new ones come behind the last.
/// Why a request to ban never reached the service.
enum class DropReason {
    NoRoom = 1, ///< the room isn't open
    Rated,      ///< the room's rate class 1 is limited
    Cleared,    ///< the operator emptied the queue
    Locked,     ///< an entry of the locked bans holds who was to be let in again
};

/// The desk's lists of names and words.
enum class ListName { None, Ops, Immunes, Autobans, Autowords, LockOps, LockImms, LockBans, Ejects };

/// Which list a change is of. `room` and `exchange` say whose, of an eject list.
struct ListId {
    ListName list = ListName::None;
    std::string_view room = {};
    std::int16_t exchange = 0;
};

class News {
  public:
    virtual ~News() = default;

    /// An outermost scope ends: all that it caused at once has been told.
    virtual void CauseEnded(const CauseScope& /*scope*/) {}

    // Connections.
    /// A stage of signing on, in the words that the window shows.
    virtual void SignOnStage(const std::string& /*text*/) {}
    /// `code` is that of TLV 0008 of the sign-on's answer (0017 0003, or channel 4); -1 is the 15 seconds'
    /// end.
    virtual void SignOnRefused(int /*code*/, const std::string& /*text*/) {}
    virtual void SignedOn(const std::string& /*name*/) {}
    virtual void SignedOff() {}
    /// The main connection was ended by the service because the name signed on elsewhere. `reason` is the
    /// value of TLV 0009, 0 when there is none; `page` is TLV 000B.
    virtual void SignedOffElsewhere(int /*reason*/, const std::string& /*page*/) {}
    /// A socket's error in the machine's own words, before what becomes of it. Over TLS these are all that
    /// says what is wrong with a certificate; their number is TlsFailed.
    virtual void SocketFailed(int /*socket*/, int /*number*/, const std::string& /*words*/) {}
    virtual void ConnectionEnded(int /*socket*/, const std::string& /*text*/) {}

    /// A FLAP frame that goes out or came in: its channel, and what stands behind the six bytes of its head.
    /// It holds whatever the wire holds, secrets too. Told to Telling::frames alone.
    virtual void Frame(int /*socket*/, bool /*sent*/, int /*channel*/, std::string_view /*body*/) {}

    // Rooms and people, by the room's socket slot.
    virtual void RoomEntered(std::int16_t /*room*/, const std::string& /*name*/, std::int16_t /*exchange*/) {}
    /// `reason` is "manual" or "error".
    virtual void RoomLeft(std::int16_t /*room*/, const std::string& /*name*/, const std::string& /*reason*/) {
    }
    /// `code` is the refusal's word, `family` the four hex digits of what refused.
    virtual void RoomRefused(int /*code*/, const std::string& /*family*/, const std::string& /*text*/) {}
    virtual void PersonCame(std::int16_t /*room*/, const std::string& /*name*/) {}
    virtual void PersonWent(std::int16_t /*room*/, const std::string& /*name*/) {}
    /// What was said in a room, with its HTML. Told to Telling::lines alone, before anything is done about
    /// it.
    virtual void LineHeard(std::int16_t /*room*/, const std::string& /*name*/, const std::string& /*line*/) {}
    /// An instant message, with its HTML, that is no command to the desk.
    virtual void MessagePassedOver(const std::string& /*name*/, const std::string& /*message*/) {}

    /// The rate classes of a connection (0001 0007): the SNAC's body.
    virtual void RateClasses(int /*socket*/, const std::string& /*body*/) {}
    /// A rate notice (0001 000A) for a room's connection or, as 0, the main one: its code and class.
    virtual void RateTold(std::int16_t /*room*/, int /*code*/, int /*classId*/) {}

    // Bans. `id` is the request id, 1 to 65535 and then from 1 anew.
    /// Somebody is to be banned or let in again. What follows: BanAsked when it goes out, at once or after it
    /// has waited.
    virtual void BanWanted(std::int16_t /*room*/, std::int32_t /*id*/, BanKind, const std::string& /*name*/) {
    }
    /// It comes to nothing. `id` is 0 for one that never got one; what waited has its own.
    virtual void BanDropped(std::int16_t /*room*/, std::int32_t /*id*/, BanKind, const std::string& /*name*/,
                            DropReason) {}
    /// A request has gone out.
    virtual void BanAsked(std::int16_t /*room*/, std::int32_t /*id*/, BanRequestKind,
                          const std::string& /*name*/) {}
    /// `word` is the refusal's, 0 for an accepted request.
    virtual void BanAnswered(std::int16_t /*room*/, std::int32_t /*id*/, BanVerdict, int /*word*/) {}

    // Lists. Entries are as the list holds them, normalised.
    virtual void ListAdded(const ListId&, const std::string& /*entry*/) {}
    virtual void ListRemoved(const ListId&, const std::string& /*entry*/) {}
    /// All entries went at once.
    virtual void ListCleared(const ListId&) {}
};

} // namespace halyard
