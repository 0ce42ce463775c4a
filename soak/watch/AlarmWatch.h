#pragma once

// The laws of the alarms: each rings once a cause and ends once, no sooner again than its rest allows; who is
// off line for too long by the engine's own record rings (that a service which is there doesn't answer any
// more, only a guard finds out); once all is well again neither the account nor a room rings; and where
// nothing goes wrong and people talk as usual, nothing rings. What a rate or a raid is to the bot isn't
// compared with anything else here. The run owns the one.

#include "bridge/watch/alarms/AlarmBook.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class AlarmWatch {
  public:
    /// `book` outlives it. `online`: whether the engine is. `quiet`: nothing is to ring at all.
    AlarmWatch(AlarmBook& book, std::function<bool()> online, bool quiet);

    /// What is wrong, at a moment of the world's, ms; empty when all is well.
    std::string Check(std::int64_t now);
    /// The operator wants the bot on line, or doesn't.
    void SetWanted(bool on) { wanted = on; }
    /// All is well by the other laws.
    std::string CheckWell() const;

    /// Since the last asking: "off-line first, off-line ended".
    std::string Rang();
    /// Begins of each kind.
    const std::map<AlarmKind, int>& Counts() const { return counts; }

  private:
    using Key = std::pair<AlarmKind, std::string>;

    void Hear(const Ring& ring);
    void Find(const std::string& words);

    AlarmBook& book;
    const std::function<bool()> online;
    const bool quiet;
    bool wanted = false;
    std::int64_t offSince = -1;
    std::map<Key, std::int64_t> standing; ///< since when, UTC ms
    std::map<Key, std::int64_t> last;     ///< begin
    std::map<AlarmKind, int> counts;
    std::string rang;
    std::string finding;
};

} // namespace halyard
