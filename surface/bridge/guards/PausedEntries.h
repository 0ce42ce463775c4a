#pragma once

// The part of the window Guards that lists the entries which the runaway fuse has paused, with a button to
// take back what each did and one to let it act again. The window owns the one.

#include "bridge/guards/bans/Fuse.h"
#include "platform/Controls.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class PausedEntries {
  public:
    PausedEntries();

    Label lblPaused{"lblPaused", "No entry pauses."};
    ListBox lstPaused{"lstPaused"};
    Button cmdTakeBack{"cmdTakeBack", "Take Its Acts Back"};
    Button cmdResume{"cmdResume", "Let It Act Again"};

    void Show(const Fuse& fuse);
    /// Returns what hinders it, or empty. `since` as Fuse::Paused.
    std::function<std::string(const Fuse::Entry& entry, std::int64_t since)> onTakeBack;
    std::function<void(const Fuse::Entry& entry)> onResume;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(lblPaused), visit(lstPaused), visit(cmdTakeBack), visit(cmdResume);
    }

  private:
    std::vector<std::pair<Fuse::Entry, std::int64_t>> entries; ///< as listed
};

} // namespace halyard
