#pragma once

// The law of the ledger: after each batch that was written, the rows say of every list and option what it is
// at the desk, and of every act its cause and its request. Where the network has faults, the disk has them
// too, drawn from a source of chance of its own. The invariants own the one.

#include "bridge/ledger/keeping/ListFold.h"
#include "platform/sim/SimRandom.h"
#include "soak/watch/ActWatch.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace halyard {

struct DatabaseTap;
struct SoakPlan;
class Options;

class LedgerWatch {
  public:
    /// All outlive it. `flush` writes what waits in the ledger.
    LedgerWatch(DatabaseTap& tap, Options& options, const SoakPlan& plan, std::function<void()> flush);

    ActWatch acts;

    /// What is wrong, at a moment of the world's, ms; empty when all is well. Cheap when nothing was written.
    std::string Check(std::int64_t now);
    /// From here on no fault comes, so that the ledger may end.
    void Rest();
    /// Once it has ended: goes through the whole file.
    std::string CheckFile() const;

  private:
    using RoomKey = std::pair<std::string, std::int64_t>; ///< as the file has it, and the exchange

    void BreakDisk(std::int64_t now);
    void Look(Connection& file, bool all, std::int64_t now);
    std::int64_t LostFacts(Connection& file);
    std::set<ListPlace> ChangedPlaces(Connection& file);
    void LearnRooms(Connection& file);
    void CompareLists(const std::set<ListPlace>& whole, bool all);
    void CompareOptions(std::int64_t now);
    template <typename List>
    void Compare(ListPlace place, const List& list, bool whole);
    void Find(const std::string& words);

    DatabaseTap& tap;
    Options& options;
    const int faults; ///< as in the plan
    const std::function<void()> flush;
    SimRandom chance;
    ListFold fold;
    std::map<RoomKey, std::int64_t> rooms; ///< rows
    std::string finding;
    std::int64_t lastChange = 0, lastRoom = 0, lastGap = 0;
    std::int64_t nextLook = 0;  ///< at everything
    std::int64_t nextFault = 0; ///< of the disk, or its end
    std::int64_t differsSince = 0;
    bool differs = false; ///< the options, as when the operator is still typing
};

} // namespace halyard
