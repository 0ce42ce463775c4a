#pragma once

// Follows bans that a management enforces: who was asked to be banned, whose session it ended, who was let in
// again. A name is on a list exactly when its session was ended for a request that nobody took back, and who
// is listed doesn't stay in the room.

#include "practice/Journal.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace halyard {

class PracticeNetwork;
class TillerSock;

class EnforcedWatch {
  public:
    struct Questions {
        std::function<bool(const std::string& name)> spared; ///< nobody signs them off; they may stay
        std::function<std::size_t()> waiting;                ///< who wait to be signed off, one a second
    };
    EnforcedWatch(const PracticeNetwork& network, const TillerSock& control, Questions questions)
        : network(network), control(control), ask(std::move(questions)) {}

    /// A request went out. `kind` is the word of its record.
    void Asked(const std::string& room, const std::string& name, bool ban, const std::string& kind,
               std::int64_t now);
    void Happened(const PracticeEvent& event);
    /// The lists are a file's now.
    void ListsLoaded();
    /// Answers may be lost until then: who was signed off needn't be listed, and who is listed may stay.
    void Trust(std::int64_t from) { trusted = from, doubted = true; }
    /// What is wrong; empty when nothing is. Looks once a second.
    std::string Check(std::int64_t now);

  private:
    using Place = std::pair<std::string, std::string>; // room and name, normalised
    std::set<Place> Listed() const;
    void Forgive(const std::string& room = {});
    std::string Lasting(std::map<Place, std::int64_t>& since, const std::set<Place>& now, std::int64_t moment,
                        std::int64_t longest, const std::string& what) const;
    bool CameLater(const Place& place) const;
    bool Counts(const Place& place) const { return !unclear.contains(place); }

    const PracticeNetwork& network;
    const TillerSock& control;
    const Questions ask;
    std::map<Place, bool> asked; ///< and not yet signed off; true for a kick, which takes off the list
    std::map<Place, std::int64_t> lastAsked; ///< of whichever request but a kick
    std::map<std::string, std::int64_t> signedOff;
    std::set<Place> ended;   ///< signed off for a list, and not let in again
    std::set<Place> unclear; ///< asked to be kicked and banned at once: which one came last isn't seen
    std::map<Place, std::int64_t> strangers, missing, staying; ///< since when it is wrong
    std::int64_t trusted = 0;
    bool doubted = false; ///< there were such times since the last look
    std::int64_t next = 0;
};

} // namespace halyard
