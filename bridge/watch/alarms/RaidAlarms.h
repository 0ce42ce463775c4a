#pragma once

// The alarm of a raid: many newcomers whom the bot acts on by itself. Nothing is stopped by it. AlarmEars
// owns the one.

#include "base/News.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class AlarmBook;
class Platform;
class RoomAlarms;

class RaidAlarms : public News {
  public:
    using Names = std::vector<std::string>;
    static constexpr std::size_t MostAsked = 500; ///< names at a time; more are as good as known

    /// All outlive it; `rooms` hears the news first. `telling` is the control's.
    RaidAlarms(Platform& platform, const Telling& telling, AlarmBook& book, const RoomAlarms& rooms)
        : platform(platform), telling(telling), book(book), rooms(rooms) {}

    /// Hands on those of some normalised names that nothing was done about before today; at once or later.
    /// Empty: all are newcomers.
    std::function<void(const Names& names, std::function<void(const Names& unknown)> then)> newcomersOf;

    /// Asks who was new, and ends what is over.
    void Look();

    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override;
    void SignedOff() override;

  private:
    struct Raid {
        std::map<std::string, std::int64_t> acted; ///< newcomers, when each last was
        std::string last;                          ///< what the last fell to
    };
    struct Suspect {
        std::string room;
        std::int64_t at = 0;
        std::string entry;
    };
    using Suspects = std::map<std::string, Suspect>;

    void Count(const Suspects& suspects, const Names& unknown);
    void Judge(const std::string& room, Raid& raid);

    Platform& platform;
    const Telling& telling;
    AlarmBook& book;
    const RoomAlarms& rooms;
    Suspects suspects;                 ///< by normalised name, not yet asked about
    std::map<std::string, Raid> raids; ///< by the room's name
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
