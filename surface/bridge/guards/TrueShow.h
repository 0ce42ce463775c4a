#pragma once

// Departure::ShownIsSo: what the panels show is shown anew once it has changed. The desk has counts of lists
// from before the change, an op's ticks and a room's data beyond their end, and a button with the word of
// before. The bridge owns the one.

#include "base/News.h"
#include "platform/Timer.h"

#include <memory>

namespace halyard {

class frmMain;

class TrueShow : public News {
  public:
    /// `main` outlives it.
    explicit TrueShow(frmMain& main);

    /// The switch may be another.
    void SwitchesChanged() { Soon(); }

    void CauseEnded(const CauseScope&) override { Soon(); }
    void ListAdded(const ListId&, const std::string&) override { Soon(); }
    void ListRemoved(const ListId&, const std::string&) override { Soon(); }
    void ListCleared(const ListId&) override { Soon(); }
    void RoomLeft(std::int16_t, const std::string&, const std::string&) override { Soon(); }
    void ConnectionsReset() override { Soon(); }

  private:
    /// A list is told while it changes, and a thousand names come at once: all is shown when that is over.
    void Soon();
    void Show();
    bool ShowCounts();
    bool ShowSwitch();

    frmMain& main;
    std::unique_ptr<Timer> timer;
};

} // namespace halyard
