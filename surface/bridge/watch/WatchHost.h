#pragma once

// The watch at this desk: what is true, and who looks at it. The bridge owns the one.

#include "bridge/watch/Truth.h"

namespace halyard {

class NewsFan;
class frmMain;

class WatchHost {
  public:
    /// Both outlive it. From now on it hears what the desk tells, frames too.
    WatchHost(frmMain& main, NewsFan& heard);
    ~WatchHost();
    WatchHost(const WatchHost&) = delete;
    WatchHost& operator=(const WatchHost&) = delete;

    Truth truth;

  private:
    frmMain& main;
    NewsFan& heard;
};

} // namespace halyard
