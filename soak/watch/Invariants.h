#pragma once

// What must hold after every event of a long run, apart from who talks and what goes wrong. The run owns the
// one, tells it what happens on the network, and asks it after each event. A violation is kept as a text; the
// first one ends the run.

#include "soak/TapMachine.h"
#include "soak/watch/AlarmWatch.h"
#include "soak/watch/BanWatch.h"
#include "soak/watch/EnforcedWatch.h"
#include "soak/watch/GuardWatch.h"
#include "soak/watch/LedgerWatch.h"
#include "soak/watch/LiftWatch.h"
#include "soak/watch/PacingWatch.h"
#include "soak/watch/TruthWatch.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace halyard {

class Chats;
class PracticeNetwork;
class frmMain;
struct PracticeEvent;

class Invariants : public TapListener {
  public:
    Invariants(SimWorld& world, TapMachine& machine, PracticeNetwork& network, frmMain& window,
               std::string botName);
    ~Invariants() override { machine.listener = nullptr; }

    bool openServer = false;               ///< a service that enforces no bans
    std::optional<EnforcedWatch> enforced; ///< and somebody else who does
    std::optional<LedgerWatch> ledger;     ///< with the bridge, as the next two
    std::optional<TruthWatch> truth;
    std::optional<AlarmWatch> alarms;
    std::optional<GuardWatch> guards;     ///< with every guard on
    const DatabaseTap* records = nullptr; ///< that the bot keeps in memory

    /// What another finds wrong; nothing for an empty text.
    void Find(const std::string& text) { Violate(text); }
    /// Empty while all holds.
    const std::string& Violation() const { return violation; }
    /// After every event of the world.
    void Check();
    /// The journal of the network.
    void Happened(const PracticeEvent& event);
    /// An eject list file was read: what the lists say of the past is the file's, not the service's.
    void ListsLoaded(const std::vector<std::string>& rooms);
    /// Nothing has gone wrong for so long that the bot must be back in these rooms.
    void RequireBack(const std::vector<std::string>& rooms);
    /// At a quiet moment: what the run holds on to must not grow from one such moment to the next.
    void RequireNoGrowth(std::size_t rooms);
    /// The ledger has ended: its file says what happened from beginning to end.
    void RequireWholeLedger() { Violate(ledger->CheckFile()); }
    const LiftWatch& TimeBans() const { return lifts; }

    // TapListener.
    void Sent(std::uint64_t stream, std::string_view frame) override;
    void Received(std::uint64_t stream, std::string_view frame) override;
    void Ended(std::uint64_t stream) override;

  private:
    void Violate(const std::string& text);
    void SentBan(std::uint64_t stream, int id, const std::string& user, bool ban);
    void CheckTimers();
    void CheckRoomTimers(const Chats& room);
    void CheckQueues();
    void CheckReplies();
    void CheckTimeBans();
    void CheckLists();
    void CheckListsAreEmpty();
    void CheckList(const Chats& room);
    double ListActs() const;

    SimWorld& world;
    TapMachine& machine;
    PracticeNetwork& network;
    frmMain& window;
    const std::string botName;
    const int banned, unbanned; ///< counters of what was done to eject lists
    std::string violation;
    PacingWatch pacing;
    BanWatch bans;
    LiftWatch lifts;
    std::set<std::string> doubtful; ///< rooms whose lists may have changed since they were compared
    double actsBefore = 0;
    int repliesInEvent = 0;
    std::size_t chatsBefore = 0;
    std::size_t mostRooms = 0; ///< that there were at once
    int slotsBefore = 0;
    std::uint64_t structure = 0;
    std::size_t memoryBefore = 0;
    int quietMoments = 0;
    std::int64_t nextGiveUp = 0;
};

} // namespace halyard
