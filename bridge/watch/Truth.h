#pragma once

// What is true of the bot at this moment, as far as its news tell: the stage of each connection and how long
// it has stood there, the rooms, what waits in them and when it will go, and what was dropped. Nothing here
// asks the wire. Moments are Platform::Milliseconds. The bridge owns the one; windows, alarms, samples and
// the soak read it.

#include "base/BanKind.h"
#include "base/News.h"
#include "bridge/watch/LineCount.h"
#include "bridge/watch/Origins.h"
#include "bridge/watch/Replies.h"
#include "rooms/Msgs.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
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
struct StageTruth {
    Stage stage = Stage::Off;
    std::string words;              ///< what a person reads, such as "Sending Login Information..."
    std::int64_t since = 0;         ///< of the stage
    std::int64_t lastHeard = -1;    ///< a frame came; -1: none on this connection
    std::int64_t lastAnswered = -1; ///< when that request of ours went out that was answered last
    std::int64_t stuckAt = -1;      ///< from then on the stage counts as stuck; -1: it may last
    std::int64_t nextAttempt = -1;  ///< with ComingBack
    bool IsStuck(std::int64_t now) const { return stuckAt >= 0 && now >= stuckAt; }
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
    StageTruth standing;
    bool owner = false;                   ///< the bot is
    std::string ownerName;                ///< empty while nobody was told
    std::array<bool, 6> rated{};          ///< subscripts 1 to 5
    std::array<std::int64_t, 6> freeAt{}; ///< of a limited one; -1: nothing frees it by itself
    int people = 0;
    std::unordered_set<std::string> names; ///< theirs, normalised
    LineCount heard;                       ///< lines of others
    std::deque<WaitingLine> lines;         ///< as the room's queue has them
    std::deque<WaitingBan> bans;
    std::array<std::int64_t, 5> pauseEnd{}; ///< by Pause; see PauseEnd
    int LinesAMinute(std::int64_t now) const { return heard.InLastMinute(now); }
    /// When it ends; not in the future: none runs. Of Unrate, which goes on by half minutes until it is
    /// stopped: when the next one ends, 0 while it is off.
    std::int64_t PauseEnd(Pause pause, std::int64_t now) const;
};

/// A room that the bot isn't in: asked for (Underway), refused, or lost.
struct AbsentRoom {
    std::string name;
    std::int16_t exchange = 0;
    StageTruth standing;
    int code = 0; ///< of the refusal
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
    static constexpr std::size_t MostAbsent = 100;

    // How long a stage may last, in ms.
    static constexpr std::int64_t SignOnTime = 15000;
    static constexpr std::int64_t ConnectTime = 75000; ///< and a request for a room, and an unanswered one

    /// Both outlive it. `telling` is the control's; frames are heard where it is Telling::frames.
    Truth(Platform& platform, Telling& telling) : platform(platform), telling(telling) {}

    /// Something changed that somebody may show. Called often: whoever paints looks at Version() at times.
    /// A line that is heard, and a frame, change the version alone.
    std::function<void()> onChanged;
    std::uint64_t Version() const { return version; }

    const StageTruth& Account() const { return account; }
    const StageTruth& Main() const { return main; }
    const StageTruth& Navigation() const { return navigation; }
    /// By socket slot: those that the bot has a connection to.
    const std::map<std::int16_t, RoomTruth>& Rooms() const { return rooms; }
    const RoomTruth* Room(std::int16_t slot) const;
    /// Those asked for, refused or lost; who was asked for last stands last. A room that the operator leaves
    /// is none of them.
    const std::vector<AbsentRoom>& Absent() const { return absent; }
    const std::vector<AwaitedRoom>& Awaited() const { return awaited; }
    /// The newest last.
    const std::deque<DroppedThing>& Dropped() const { return dropped; }
    std::uint64_t DroppedCount() const { return droppedCount; }
    const std::string& AccountName() const { return name; }
    /// Lines of others heard in all rooms since the start.
    std::uint64_t HeardCount() const { return heardCount; }
    std::int64_t Now() const;

    // News: connections (Truth.cpp).
    void SignOnStage(const std::string& text) override;
    void SignOnBegun(const std::string& name) override;
    void ConnectionsReset() override;
    void ComebackPlanned(int milliseconds) override;
    void SocketTagged(int socket, const std::string& tag) override;
    void SignOnRefused(int code, const std::string& text) override;
    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void SocketFailed(int socket, int number, const std::string& words) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void Frame(int socket, bool sent, int channel, std::string_view body) override;

    // News: rooms (TruthRooms.cpp).
    void RoomsAwaited(const Collection<std::string>& entries) override;
    void RoomAsked(const std::string& name, std::int16_t exchange) override;
    void RoomOpened(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;
    void OwnerTold(std::int16_t room, const std::string& name, bool own) override;
    void PersonCame(std::int16_t room, const std::string& name) override;
    void PersonWent(std::int16_t room, const std::string& name) override;

    // News: what waits (TruthWaiting.cpp).
    void PauseBegan(std::int16_t room, Pause pause, int milliseconds) override;
    void PauseEnded(std::int16_t room, Pause pause) override;
    void RateLevel(std::int16_t room, int classId, bool rated, int milliseconds) override;
    void LineQueued(std::int16_t room, const Msgs& line) override;
    void LineSaid(std::int16_t room, const Msgs& send, const std::string& line,
                  const std::vector<std::int64_t>& numbers) override;
    void LineDropped(std::int16_t room, const Msgs& line, LineDrop why) override;
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;
    void BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                    const std::string& other, DropReason why) override;

  private:
    /// A connection, and what is told of it; null for what nobody asks about.
    struct Wired {
        StageTruth* standing = nullptr;
        RoomTruth* room = nullptr;
        Replies replies;
    };
    void Changed();
    RoomTruth* Find(std::int16_t slot);
    RoomTruth* Holder(std::int16_t slot);
    void Wire();
    void Silence(int socket);
    void Stand(StageTruth& standing, Stage stage, const std::string& words, std::int64_t mayTake = -1);
    void Settle();
    bool IsOwnLine(std::string_view snac) const;
    void HearFrame(Wired& wire, bool sent, std::string_view snac, std::int64_t now);
    AbsentRoom& Miss(const std::string& room, std::int16_t exchange);
    void NotMissed(const std::string& room, std::int16_t exchange);
    void LoseRequest(const std::string& words);
    void Drop(std::int16_t room, DroppedThing thing);

    Platform& platform;
    Telling& telling;
    std::uint64_t version = 0;
    std::uint64_t droppedCount = 0;
    std::uint64_t heardCount = 0;
    std::string name;
    StageTruth account, main, navigation;
    std::map<std::int16_t, RoomTruth> rooms;
    std::vector<AbsentRoom> absent;
    std::vector<AwaitedRoom> awaited;
    std::deque<DroppedThing> dropped;

    Stage session = Stage::Off; // the account's, but for the way back that may be planned
    std::string sessionWords;
    std::int64_t planned = -1; // the next attempt; -1: none
    std::string machineWords;  // of the main connection's error
    bool elsewhere = false;    // the name signed on elsewhere
    int navigationSocket = -1;
    std::map<int, std::string> tags; // by socket, without the empty ones
    std::vector<Wired> wires;        // by socket
    RoomTruth left;                  // the room that was left last: what waited there is dropped then
    Origins origins;
};

} // namespace halyard
