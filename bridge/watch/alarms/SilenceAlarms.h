#pragma once

// The alarm of a room in which people are and nobody's line is heard. AlarmEars owns the one.

#include "bridge/watch/Truth.h"

#include <cstdint>
#include <map>
#include <string>

namespace halyard {

class AlarmBook;
class RoomAlarms;

class SilenceAlarms {
  public:
    /// Whose line was heard last in a room, and how many are there, is what `truth` says. All outlive it.
    SilenceAlarms(Platform& platform, const Truth& truth, AlarmBook& book, const RoomAlarms& rooms)
        : platform(platform), truth(truth), book(book), rooms(rooms) {}

    /// To be called twice a minute or more often: a line is seen for a minute.
    void Look();

  private:
    struct Quiet {
        std::int64_t since = 0;
        std::string room;
    };

    void LookAt(std::int16_t slot, const RoomTruth& room, std::int64_t now);

    Platform& platform;
    const Truth& truth;
    AlarmBook& book;
    const RoomAlarms& rooms;
    std::map<std::int16_t, Quiet> quiet; ///< by socket slot
};

} // namespace halyard
