#pragma once

// What finds alarms in the news and in what is true: one part a subject, and a look at what lasts every ten
// seconds. The bridge owns the one.

#include "bridge/watch/alarms/AccountAlarms.h"
#include "bridge/watch/alarms/CountAlarms.h"
#include "bridge/watch/alarms/FileAlarms.h"
#include "bridge/watch/alarms/RaidAlarms.h"
#include "bridge/watch/alarms/RoomAlarms.h"
#include "bridge/watch/alarms/SilenceAlarms.h"
#include "platform/Timer.h"

#include <memory>

namespace halyard {

class NewsFan;

class AlarmEars {
  public:
    static constexpr int LookEvery = 10'000; ///< ms

    /// All outlive it. `telling` is the control's.
    AlarmEars(Platform& platform, const Telling& telling, const Truth& truth, AlarmBook& book);

    /// Hears the news of `fan` from now on, to its end. `truth` hears them first.
    void Listen(NewsFan& fan);

    RoomAlarms rooms;
    AccountAlarms account;
    CountAlarms counts;
    SilenceAlarms silence;
    RaidAlarms raids;
    FileAlarms files;

  private:
    void Look();

    std::unique_ptr<Timer> timer;
};

} // namespace halyard
