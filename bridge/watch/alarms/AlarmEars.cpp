#include "bridge/watch/alarms/AlarmEars.h"

#include "bridge/NewsFan.h"
#include "platform/Platform.h"

namespace halyard {

AlarmEars::AlarmEars(Platform& platform, const Telling& telling, const Truth& truth, AlarmBook& book)
    : rooms(platform, telling, book), account(platform, telling, truth, book),
      counts(platform, telling, book, rooms), silence(platform, truth, book, rooms),
      raids(platform, telling, book, rooms), files(book), timer(platform.NewTimer()) {
    timer->SetInterval(LookEvery);
    timer->onTick = [this] { Look(); };
}

void AlarmEars::Listen(NewsFan& fan) {
    fan.Add(rooms);
    fan.Add(account);
    fan.Add(counts);
    fan.Add(raids);
    fan.Add(files);
    timer->SetEnabled(true);
}

void AlarmEars::Look() {
    account.Look();
    rooms.Look(account.OnLine());
    counts.Look();
    silence.Look();
    raids.Look();
}

} // namespace halyard
