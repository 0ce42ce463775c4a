#pragma once

// What is true of the bot at this moment, as far as its news tell: the stage of each connection and how long
// it has stood there, the rooms, what waits in them and when it will go, and what was dropped. Nothing here
// asks the wire. Moments are Platform::Milliseconds. The bridge owns the one; windows, alarms, samples and
// the soak read it.

#include "base/BanKind.h"
#include "base/News.h"
#include "rooms/Msgs.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

class Platform;

enum class Stage {
    Off,        ///< nothing is there and nothing is on its way
    Underway,   ///< connecting, signing on, opening
    On,         ///< on line; connected; in the room
    ComingBack, ///< lost, and an attempt is planned
    Lost,       ///< lost, and nobody comes back by themselves
    Refused,    ///< by the service, and nothing is planned
};

/// Where the account, a connection or a room stands.
struct Standing {
    Stage stage = Stage::Off;
    std::string words;              ///< what a person reads, such as "Sending Login Information..."
    std::int64_t since = 0;         ///< of the stage
    std::int64_t lastHeard = -1;    ///< a frame came; -1: none on this connection
    std::int64_t lastAnswered = -1; ///< when that request of ours went out that was answered last
    std::int64_t stuckAt = -1;      ///< from then on the stage counts as stuck; -1: it may last
    std::int64_t nextAttempt = -1;  ///< with ComingBack
    bool IsStuck(std::int64_t now) const { return stuckAt >= 0 && now >= stuckAt; }
};

/// Who made something wait or go: an op by name, a rule by its entry, or what else the cause was.
struct Origin {
    CauseKind kind = CauseKind::Unknown;
    RuleKind rule = RuleKind::None;
    std::string op;    ///< as the wire spells them; empty for none
    std::string entry; ///< of the rule, or the control's name
};

struct WaitingLine {
    Msgs send; ///< its Number names it
    Origin origin;
    std::int64_t since = 0;
};

struct WaitingBan {
    std::int32_t id = 0; ///< names it
    BanKind kind{};
    std::string name, other;
    Origin origin;
    std::int64_t since = 0;
};

/// What never went out, and why.
struct DroppedThing {
    std::int64_t at = 0;
    std::string room;
    bool ban = false;
    std::string what; ///< the line's key or the ban's word
    std::string whom;
    LineDrop line{};     ///< of a line
    DropReason reason{}; ///< of a ban
    Origin origin;
};

struct RoomTruth {
    std::int16_t slot = 0;
    std::string name;
    std::int16_t exchange = 0;
    Standing standing;
    bool owner = false;                   ///< the bot is
    std::string ownerName;                ///< empty while nobody was told
    std::array<bool, 6> rated{};          ///< subscripts 1 to 5
    std::array<std::int64_t, 6> freeAt{}; ///< -1: nothing frees it by itself
    int people = 0;
    std::deque<std::int64_t> heard; ///< lines of others in the last minute
    std::vector<WaitingLine> lines; ///< as the room's queue has them
    std::vector<WaitingBan> bans;
    std::array<std::int64_t, 5> pauseEnd{}; ///< by Pause; not in the future: none runs
    int LinesAMinute(std::int64_t now) const;
};

/// A room that was lost or refused and that the desk or a guard means to enter again.
struct AwaitedRoom {
    std::string name;
    std::int16_t exchange = 0;
    std::int64_t since = 0;
};

class Truth : public News {
  public:
    static constexpr std::size_t MostDropped = 200;

    /// Both outlive it. `telling` is the control's; frames are heard where it is Telling::frames.
    Truth(Platform& platform, Telling& telling);

    /// Something changed that somebody may show. Called often: whoever paints looks at Version() at times.
    std::function<void()> onChanged;
    std::uint64_t Version() const { return version; }

    const Standing& Account() const { return account; }
    const Standing& Main() const { return main; }
    const Standing& Navigation() const { return navigation; }
    /// By socket slot.
    const std::map<std::int16_t, RoomTruth>& Rooms() const { return rooms; }
    const RoomTruth* Room(std::int16_t slot) const;
    const std::vector<AwaitedRoom>& Awaited() const { return awaited; }
    /// The newest last.
    const std::deque<DroppedThing>& Dropped() const { return dropped; }
    std::uint64_t DroppedCount() const { return droppedCount; }
    const std::string& AccountName() const { return name; }

  private:
    Platform& platform;
    Telling& telling;
    std::uint64_t version = 0;
    std::uint64_t droppedCount = 0;
    std::string name;
    Standing account, main, navigation;
    std::map<std::int16_t, RoomTruth> rooms;
    std::vector<AwaitedRoom> awaited;
    std::deque<DroppedThing> dropped;
};

} // namespace halyard
