#pragma once

// Keeping while the bot runs: prunes once a day in small steps, forgets persons, copies the file. All of it
// on the writer, with pauses between the steps. The bridge owns the one, beside the ledger.

#include "bridge/ledger/keeping/Keeping.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Ledger;
class Platform;
class Timer;

class Keeper {
  public:
    static constexpr int StepPause = 100; ///< ms

    /// Both outlive it.
    Keeper(Platform& platform, Ledger& ledger);
    ~Keeper();
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;

    KeepDays days;
    /// Prunes now and once a day from now on, by the days of that moment.
    void Start();
    /// `done` hears what became of it, and why it failed, which is empty when it didn't. Nothing of the
    /// person is left in the file then, nor in its log.
    void Forget(const std::string& name, std::function<void(ForgetOutcome, const std::string& failure)> done);
    /// One whole file at `path`, the operator's alone; refused where something stands. `done` hears why it
    /// failed, or nothing.
    void BackUp(const std::string& path, std::function<void(const std::string& failure)> done);

  private:
    using Job = std::function<bool(Connection&)>; ///< false: it was the last step
    void Prune();
    void Run(Job step, std::function<void(const DatabaseResult&)> done);
    void Next();

    struct Work {
        Job step;
        std::function<void(const DatabaseResult&)> done;
    };

    Platform& platform;
    Ledger& ledger;
    std::unique_ptr<Timer> daily;
    std::unique_ptr<Timer> pause;
    std::deque<Work> waiting; ///< the first is under way
    std::shared_ptr<bool> lives = std::make_shared<bool>(true);
};

} // namespace halyard
