#pragma once

// The alarms of what happens too often in a room: rated, lines dropped, bans refused. Each ends once there
// was none for its whole time. AlarmEars owns the one.

#include "base/News.h"
#include "bridge/watch/alarms/AlarmKinds.h"
#include "bridge/watch/alarms/AlarmTally.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace halyard {

class AlarmBook;
class Platform;
class RoomAlarms;

class CountAlarms : public News {
  public:
    /// All outlive it; `rooms` hears the news first. `telling` is the control's.
    CountAlarms(Platform& platform, const Telling& telling, AlarmBook& book, const RoomAlarms& rooms)
        : platform(platform), telling(telling), book(book), rooms(rooms) {}

    bool enforcedElsewhere = false; ///< another than the rooms enforces bans: refusals mean nothing
    /// Ends what is over.
    void Look();

    void RateLevel(std::int16_t room, int classId, bool rated, int milliseconds) override;
    void LineDropped(std::int16_t room, const Msgs& line, LineDrop why) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;
    void SignedOff() override;

  private:
    using Key = std::pair<AlarmKind, std::string>;

    void Count(AlarmKind kind, std::int16_t room, const std::string& words);
    std::int64_t SpanOf(AlarmKind kind) const;

    Platform& platform;
    const Telling& telling;
    AlarmBook& book;
    const RoomAlarms& rooms;
    std::map<Key, AlarmTally> tallies; ///< by the room's name
};

} // namespace halyard
