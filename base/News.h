#pragma once

// What the desk tells the bridge: one method a fact, told once, where it becomes true, through the Telling of
// base/Cause.h, which also knows why. Every method has an empty body; with nobody listening a fact costs one
// null check. Texts are Windows-1252, one character a byte.

#include "base/BanKind.h"
#include "base/Cause.h"
#include "base/Departure.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
    Lost,       ///< the room was left or lost while it waited
    ByHand,     ///< the operator took it out of the queue
};

/// The desk's lists of names and words.
enum class ListName { None, Ops, Immunes, Autobans, Autowords, LockOps, LockImms, LockBans, Ejects };

/// Which list a change is of. `room` and `exchange` say whose, of an eject list.
struct ListId {
    ListName list = ListName::None;
    std::string_view room = {};
    std::int16_t exchange = 0;
};

struct Msgs;
template <typename Value>
class Collection;

/// What a room's pause holds up: its bans, the three classes of lines, or its rate's lifting.
enum class Pause { Bans, Lines1, Lines2, Lines3, Unrate };

/// Why a line was never said. The numbers stand in files: new ones come behind the last.
enum class LineDrop {
    Paused = 1, ///< another of its class had just been said, and this class doesn't wait
    Rated,      ///< the room's lines are limited
    Cleared,    ///< the operator emptied the queue
    Overtaken,  ///< it stood first when a line behind it was said
    Lost,       ///< the room was left or lost
    Unknown,    ///< its key says nothing
    ByHand,     ///< the operator took it out
    TooOld,     ///< it has waited as long as an answer may
    TooMany,    ///< as many wait as may
};

/// What became of a time ban.
enum class TimeBanStep { Set, Over, Forgotten };

class News {
  public:
    virtual ~News() = default;

    /// An outermost scope ends: all that it caused at once has been told.
    virtual void CauseEnded(const CauseScope& /*scope*/) {}

    // Connections.
    /// A stage of signing on, in the words that the window shows.
    virtual void SignOnStage(const std::string& /*text*/) {}
    virtual void SignOnBegun(const std::string& /*name*/) {}
    /// Every connection was closed and every room dropped, without a word of their own: before a sign-on, at
    /// its refusal, at a sign-off by either side. Nobody is signed on from here on.
    virtual void ConnectionsReset() {}
    /// The next attempt to come back on line follows in so many ms; -1: none is to come any more.
    virtual void ComebackPlanned(int /*milliseconds*/) {}
    /// The rooms that wait to be joined again, as entries "name:exchange:instance".
    virtual void RoomsAwaited(const Collection<std::string>& /*entries*/) {}
    /// The state text of a connection, such as "[Chat]connecting"; empty when it is closed.
    virtual void SocketTagged(int /*socket*/, const std::string& /*tag*/) {}
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
    /// A room is asked for; RoomEntered or RoomRefused is the answer.
    virtual void RoomAsked(const std::string& /*name*/, std::int16_t /*exchange*/) {}
    /// A connection to a room stands, and what the room is, is to come. The name may still be another's.
    virtual void RoomOpened(std::int16_t /*room*/, const std::string& /*name*/, std::int16_t /*exchange*/) {}
    /// Who owns the room, and whether the bot counts as its owner.
    virtual void OwnerTold(std::int16_t /*room*/, const std::string& /*name*/, bool /*own*/) {}
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

    // Lines and pauses. A line that waits has its Msgs::Number. What a room lets go of when it ends comes
    // about its RoomLeft, before or behind it.
    virtual void LineQueued(std::int16_t /*room*/, const Msgs&) {}
    /// A line by a template goes out; `numbers` are those of the waiting lines that are in it. `line` is as
    /// the room hands it out, before its font.
    virtual void LineSaid(std::int16_t /*room*/, const Msgs&, const std::string& /*line*/,
                          const std::vector<std::int64_t>& /*numbers*/) {}
    virtual void LineDropped(std::int16_t /*room*/, const Msgs&, LineDrop) {}
    /// What it holds up goes on in so many ms, if nothing else stops it. Begun anew while it runs, the time
    /// starts over.
    virtual void PauseBegan(std::int16_t /*room*/, Pause, int /*milliseconds*/) {}
    /// It is over before its time, or with nothing left to go on. A pause of Lines3 ends by its time alone.
    virtual void PauseEnded(std::int16_t /*room*/, Pause) {}
    /// A rate class of a room was limited or is free. `milliseconds` until it frees itself, in whole half
    /// minutes of which the first may be running already; -1 when nothing frees it by itself. Told anew while
    /// it is limited when that changes.
    virtual void RateLevel(std::int16_t /*room*/, int /*classId*/, bool /*rated*/, int /*milliseconds*/) {}

    /// `record` as in rooms/TimeBan.h.
    virtual void TimeBanTold(TimeBanStep, const std::string& /*record*/) {}
    /// A file of the desk's was written, or couldn't be.
    virtual void FileWritten(const std::string& /*path*/, bool /*done*/) {}

    /// The desk stood where a departure would have it go another way: whether it did. `who` is whom it is
    /// about, empty for none.
    virtual void GuardAsked(Departure, bool /*acts*/, std::int16_t /*room*/, const std::string& /*who*/) {}
    /// An op's part of a name was passed over; `fits` are the whole names that hold it.
    virtual void PartHitNobody(std::int16_t /*room*/, const std::string& /*op*/, const std::string& /*part*/,
                               const std::vector<std::string>& /*fits*/) {}

    /// A frame came on this connection; `ownInfo`: it is the account's own information (0001 000F). Told
    /// while Departure::SilenceIsAskedAbout is on.
    virtual void SomethingHeard(int /*socket*/, bool /*ownInfo*/) {}
    /// Somebody would be in this room: RoomAsked follows, at once or when its turn comes.
    virtual void RoomWanted(const std::string& /*name*/, std::int16_t /*exchange*/) {}
    /// The service is asked to close the room for all.
    virtual void RoomCloseAsked(std::int16_t /*room*/) {}

    // Bans. `id` is the request id, 1 to 65535 and then from 1 anew. `other` is what the kind's line tells
    // besides the name: the entry that matched, or the minutes of a time ban.
    /// Somebody is to be banned or let in again. What follows: BanAsked when it goes out, at once or after it
    /// has waited.
    virtual void BanWanted(std::int16_t /*room*/, std::int32_t /*id*/, BanKind, const std::string& /*name*/,
                           const std::string& /*other*/) {}
    /// It comes to nothing. `id` is 0 for one that never got one; what waited has its own.
    virtual void BanDropped(std::int16_t /*room*/, std::int32_t /*id*/, BanKind, const std::string& /*name*/,
                            const std::string& /*other*/, DropReason) {}
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
