#pragma once

// Departure::RoomsAreAskedForAgain: the list of rooms that the operator, or a command, wants the bot to be
// in, and the way back into each: one at a time, at first at once, then with pauses that double up to ten
// minutes. The desk's own way back holds still meanwhile. A room that a person left or closed is wanted no
// more; nor is one that can never be entered, which rings. Guards owns the one.

#include "base/News.h"
#include "bridge/guards/GuardHands.h"
#include "platform/Timer.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class RoomsAgain : public News {
  public:
    // Milliseconds.
    static constexpr int AtOnce = 1000; ///< behind what happened
    static constexpr int FirstPause = 8000;
    static constexpr int LongestPause = 600'000;
    static constexpr int RatedPause = 60'000;   ///< at least, where the bot enters rooms too fast
    static constexpr int AnswerWithin = 75'000; ///< then a request counts as refused
    static constexpr int Settled = 60'000;      ///< a room that stood so long begins anew when it is lost
    static constexpr std::size_t MostRooms = 256;
    /// So often in a row a name is said to be wrong before it is believed: a request whose room got lost on
    /// the way is refused so, too.
    static constexpr int WrongNames = 3;

    explicit RoomsAgain(const GuardHands& hands);

    void SwitchesChanged();

    struct Wanted {
        std::string name; ///< as it was asked for, or as the service names it
        std::int16_t exchange = 0;
        bool inside = false;
        std::int64_t nextAt = -1; ///< ms; -1 while inside or being asked for
        int tries = 0;            ///< in vain, since it was lost
    };
    /// In the order of their names.
    std::vector<Wanted> List() const;

    void SignOnBegun(const std::string&) override { signingOn = true; }
    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void ConnectionsReset() override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void ComebackPlanned(int milliseconds) override;
    void RoomsAwaited(const Collection<std::string>& entries) override;
    void RoomWanted(const std::string& name, std::int16_t exchange) override;
    void RoomAsked(const std::string& name, std::int16_t exchange) override;
    void RoomCloseAsked(std::int16_t room) override;
    void RoomOpened(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;

  private:
    using Key = std::pair<std::string, std::int16_t>; ///< the normalised name, and the exchange
    struct Room {
        std::string name;
        bool inside = false;
        std::int64_t enteredAt = 0;
        std::int64_t nextAt = -1;
        int pause = 0; ///< ms, the last one; 0: the next time is at once
        int tries = 0;
        int wrongNames = 0; ///< refusals in a row that say so
    };
    bool On() const;
    static Key KeyOf(const std::string& name, std::int16_t exchange);
    void AskAtOnce(Room& room);
    void AskIn(Room& room, int milliseconds);
    void AskLater(Room& room, int least);
    void Failed(int code);
    void ForgetWanted();
    void ForgetWhatStands();
    void Arm();
    void Tick();
    void TellAwaited();

    GuardHands hands;
    std::map<Key, Room> rooms;
    std::set<Key> rung;                           ///< given up, with an alarm
    std::map<std::int16_t, Key> slots;            ///< rooms that stand or open, by socket slot
    std::map<std::int16_t, std::int64_t> closing; ///< ms, when a person asked for its closing
    Key asked;                                    ///< the last one that was asked for and isn't answered
    std::int64_t askedAt = -1;                    ///< -1: none is
    bool onLine = false;
    bool elsewhere = false; ///< the sign-off that follows is not the operator's
    bool signingOn = false;
    bool telling = false;
    bool toldAny = false; ///< the last list told wasn't empty
    std::unique_ptr<Timer> timer;
};

} // namespace halyard
