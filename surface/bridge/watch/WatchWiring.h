#pragma once

// Ties the watch to what shows it: foot line and window hear what is true, the minutes go into the ledger and
// come back from it, the window's buttons are the desk's doors. The bridge owns the one.

#include "surface/bridge/watch/Refresher.h"

#include <cstdint>
#include <memory>

namespace halyard {

class AlarmHost;
class FootLine;
class LedgerHost;
class LedgerWindow;
class WatchHost;
class WatchWindow;
class frmMain;

class WatchWiring {
  public:
    struct Shown {
        FootLine& foot;
        WatchWindow& window;
        LedgerWindow& acts;
    };
    /// All outlive it. The window's hooks are filled here, once.
    WatchWiring(frmMain& main, WatchHost& watch, LedgerHost& ledger, AlarmHost& alarms, const Shown& shown);
    ~WatchWiring();
    WatchWiring(const WatchWiring&) = delete;
    WatchWiring& operator=(const WatchWiring&) = delete;

    /// Another ledger is open, or none any more.
    void Reopened();
    /// Something that the foot line says may be another.
    void Changed();

  private:
    void FillHooks();
    void ReadEarlier();
    void StandFoot();

    frmMain& main;
    WatchHost& watch;
    LedgerHost& ledger;
    AlarmHost& alarms;
    Shown shown;
    Refresher refresher;
    std::unique_ptr<Timer> stuck; ///< the next moment at which something counts as stuck
    bool earlierRead = false;     ///< the minutes of earlier runs are asked for
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
