#include "surface/bridge/guards/PausedEntries.h"

namespace halyard {

PausedEntries::PausedEntries() {
    cmdTakeBack.SetEnabled(false);
    cmdResume.SetEnabled(false);
    // One is meant without being chosen, too.
    const auto chosen = [this] {
        const auto line = lstPaused.ListIndex() < 0 ? 0 : lstPaused.ListIndex();
        return entries[static_cast<std::size_t>(line)];
    };
    cmdTakeBack.Click = [this, chosen] {
        if (entries.empty() || !onTakeBack) return;
        const auto [entry, since] = chosen();
        const auto hindered = onTakeBack(entry, since);
        lblPaused.SetCaption(hindered.empty() ? "What " + WordsOf(entry) + " did is taken back."
                                              : "Not taken back: " + hindered);
    };
    cmdResume.Click = [this, chosen] {
        if (entries.empty() || !onResume) return;
        const auto entry = chosen().first;
        onResume(entry);
    };
}

void PausedEntries::Show(const Fuse& fuse) {
    entries.assign(fuse.Paused().begin(), fuse.Paused().end());
    lstPaused.Clear();
    for (const auto& each : entries) lstPaused.AddItem(WordsOf(each.first));
    lblPaused.SetCaption(entries.empty() ? "No entry pauses."
                                         : "These pause, since they acted on many whom the ledger knew:");
    cmdTakeBack.SetEnabled(!entries.empty());
    cmdResume.SetEnabled(!entries.empty());
}

} // namespace halyard
