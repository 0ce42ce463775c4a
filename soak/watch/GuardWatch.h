#pragma once

// The sharper laws that hold once every guard is on: time bans end when their room lets them, nobody is kept
// out who is on no list, what waits goes, and the operator's list of rooms is true. The invariants of a run
// own the one.

#include "base/News.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class Bridge;
class Chats;
class PracticeNetwork;
class frmMain;

class GuardWatch : public News {
  public:
    /// All outlive it.
    GuardWatch(PracticeNetwork& network, frmMain& window, Bridge& bridge);
    ~GuardWatch() override;
    GuardWatch(const GuardWatch&) = delete;
    GuardWatch& operator=(const GuardWatch&) = delete;

    /// After an event at a moment in ms: empty, or what is wrong.
    std::string Check(std::int64_t now);
    /// A list file was read: who is kept out of these rooms, and on no list any more, is the file's doing.
    void ListsLoaded(const std::vector<std::string>& rooms);
    std::size_t EndedCount() const { return ended; }
    /// Those of them that had to wait for their room.
    std::size_t WaitedCount() const { return waited; }

    void TimeBanTold(TimeBanStep step, const std::string& record) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;

  private:
    using Place = std::pair<std::string, std::string>; ///< of a room and a person, normalised
    using Moments = std::map<Place, std::int64_t>;
    /// Of this name, entered, and not limited for bans; null otherwise.
    std::shared_ptr<Chats> Open(const std::string& room) const;
    std::set<std::string> Listed(const Chats& room) const;
    void CheckTimeBans();
    void CheckLifted();
    void CheckBanned(const Chats& room);
    void CheckKept();
    void CheckRoomList();
    /// The moment since when without a break; `limit` ms are too long.
    void TooLong(Moments& since, const Place& place, std::int64_t limit, const std::string& what);
    void Violate(const std::string& text) {
        if (wrong.empty()) wrong = text;
    }

    PracticeNetwork& network;
    frmMain& window;
    Bridge& bridge;
    std::int64_t now = 0;
    std::int64_t nextLook = 0;
    std::string wrong;
    Moments due;     ///< time bans that run, and their ends
    Moments overdue; ///< since when they could have been lifted
    Moments lifted;  ///< time bans that are over, since when the room has been open to lift them
    Moments unlisted;
    Moments asked; ///< when something was asked for about them last
    Moments kept;
    Moments shown;
    std::set<Place> excused;
    std::size_t ended = 0, waited = 0;
};

} // namespace halyard
