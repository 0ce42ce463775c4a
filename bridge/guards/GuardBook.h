#pragma once

// How often each guard acted, and how often it would have acted while it was off: counted by the day (UTC),
// kept in the ledger and read from there. That one acted is an act of the ledger too, once a minute. Guards
// owns the one. While no ledger is kept, it knows what came since the program's start.

#include "base/News.h"
#include "platform/Timer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <tuple>

namespace halyard {

class Ledger;
class Platform;
class TillerSock;

struct GuardCount {
    std::int64_t acted = 0;
    std::int64_t wouldHave = 0;
};
using GuardCounts = std::array<GuardCount, DepartureCount>;

class GuardBook : public News {
  public:
    static constexpr int Pause = 60'000; ///< ms; a guard costs the ledger at most two rows in this time
    static constexpr int Days = 30;      ///< that are looked back to

    /// `ledger` gives null while none is kept. The others outlive it.
    GuardBook(Platform& platform, TillerSock& control, std::function<Ledger*()> ledger);
    ~GuardBook() override;
    GuardBook(const GuardBook&) = delete;
    GuardBook& operator=(const GuardBook&) = delete;

    /// The counts of the last 30 days, today's among them. `then` may be called at once, and isn't when the
    /// book is gone by then.
    void Ask(std::function<void(const GuardCounts&)> then);
    /// Hands on what was counted.
    void Flush();

    void GuardAsked(Departure guard, bool acts, std::int16_t room, const std::string& who) override;

  private:
    using Place = std::tuple<std::int64_t, Departure, bool>; ///< day, guard, whether it acted
    std::int64_t Today();
    Ledger* OpenLedger() const;
    void AddWaiting(GuardCounts& counts);

    void TellAct(Departure guard, std::int16_t room, const std::string& who);

    Platform& platform;
    TillerSock& control;
    std::function<Ledger*()> ledger;
    std::map<Place, std::int64_t> waiting;              ///< not handed on yet
    std::array<std::int64_t, DepartureCount> nextAct{}; ///< ms, from when on an act is told again
    std::unique_ptr<Timer> timer;
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
