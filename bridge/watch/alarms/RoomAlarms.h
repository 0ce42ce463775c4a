#pragma once

// The alarm of a room that was lost, refused or closed, and isn't entered again in time. AlarmEars owns the
// one.

#include "base/News.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace halyard {

class AlarmBook;
class Platform;

class RoomAlarms : public News {
  public:
    /// All outlive it. `telling` is the control's.
    RoomAlarms(Platform& platform, const Telling& telling, AlarmBook& book)
        : platform(platform), telling(telling), book(book) {}

    /// Rings what has lasted too long. `online` is the account's: while it isn't, that says enough.
    void Look(bool online);
    /// Of a room that is joined; empty for no such slot.
    std::string NameOf(std::int16_t slot) const;

    void SignOnBegun(const std::string& name) override;
    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void ConnectionsReset() override;
    void RoomAsked(const std::string& name, std::int16_t exchange) override;
    void RoomEntered(std::int16_t slot, const std::string& name, std::int16_t exchange) override;
    void RoomCloseAsked(std::int16_t slot) override;
    void RoomLeft(std::int16_t slot, const std::string& name, const std::string& reason) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;

  private:
    static constexpr std::size_t MostRooms = 1000;
    static constexpr std::int64_t LongestClosing = 60'000; ///< ms
    using Key = std::pair<std::string, std::int16_t>;      ///< normalised name and exchange

    /// A room that the bot is in or ought to be in.
    struct Wanted {
        std::string name;
        std::int16_t slot = 0; ///< 0: the bot isn't in it
        std::int64_t since = 0;
        std::string why;
    };

    void Lose(Wanted& room, const char* why);
    void ForgetAll();
    static std::string SubjectOf(const Key& key, const Wanted& room);

    Platform& platform;
    const Telling& telling;
    AlarmBook& book;
    std::map<Key, Wanted> rooms;
    Key asked;                                    ///< for which the bot asked last
    std::map<std::int16_t, std::int64_t> closing; ///< slots of rooms that were to be closed, and when
};

} // namespace halyard
