#pragma once

// The way of facts from the loop to the writer: batches, one transaction each, that wait while the file can't
// be written and are bounded. The ledger owns the one.

#include "bridge/ledger/Facts.h"
#include "platform/Database.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Platform;
class Scribe;
class Timer;

class FactQueue {
  public:
    static constexpr int Pause = 250; ///< ms that a fact waits for others
    static constexpr std::size_t BatchFacts = 500;
    static constexpr std::size_t MostFacts = 10'000;
    static constexpr int RetryPause = 5000; ///< ms

    explicit FactQueue(Platform& platform);
    ~FactQueue();
    FactQueue(const FactQueue&) = delete;
    FactQueue& operator=(const FactQueue&) = delete;

    std::function<void(const std::string&)> onTell; ///< once when writing fails, once when it works again
    std::function<void(bool works, const std::string&)> onHealth; ///< the same, for alarms
    std::function<void()> onWritten;                              ///< a batch stands in the file
    std::function<void()> onBatch;  ///< a batch is about to go: what is held back comes now
    std::function<void()> onGapEnd; ///< facts were lost: whole contents are to follow

    /// Opens the file, tries again where that may help, and begins a run. Without a database of the platform
    /// nothing is kept. What came before waits.
    void Open(const std::string& path, const std::string& version);
    void Add(Fact&& fact);
    /// Writes what waits without a pause.
    void Flush();
    /// Writes what waits, and ends.
    void Close();

    /// From the next batch on the writer looks up again who has which row.
    void ForgetRows() { fresh = true; }

    /// False when there will be no file: facts are passed over.
    bool Keeps() const { return state != State::Refused; }
    /// The file can't be written now, or there will be none.
    bool Fails() const { return failing || state == State::Refused; }
    /// Null until the file is open.
    Database* Records() { return state == State::Ready ? database.get() : nullptr; }
    /// How many acts the file held before this run; nothing until it is known.
    std::optional<std::int64_t> ActsBefore() const { return actsBefore; }

  private:
    enum class State { New, Opening, Beginning, Ready, Refused };
    struct Batch {
        std::vector<Fact> facts;
        std::int64_t since = 0;
    };

    bool Waits() const { return !batches.empty() || gap.facts > 0; }
    void TryToOpen();
    void Opened(OpenOutcome outcome, const std::string& words);
    void Begin();
    void SendNext();
    void Hand(const std::shared_ptr<Batch>& batch, Database::Done done);
    void Written(const DatabaseResult& result);
    void Failed(const DatabaseResult& result);
    void Worked();
    void Drop(std::size_t place);
    void EndGap();
    void Tick();
    void Arm(int pause);
    void Tell(const std::string& words) const;

    Platform& platform;
    std::unique_ptr<Database> database;
    std::unique_ptr<Timer> timer;
    std::shared_ptr<Scribe> scribe; ///< used on the writer alone
    std::string path, version;
    State state = State::New;
    std::deque<std::shared_ptr<Batch>> batches; ///< the first may be under way
    std::size_t count = 0;                      ///< of facts in them
    bool underWay = false;
    bool flushing = false;
    bool failing = false;
    bool fresh = false; ///< the writer knows nothing of the rows any more
    int failures = 0;   ///< of one batch, for no reason of the disk's
    GapFact gap;
    std::optional<std::int64_t> actsBefore;
};

} // namespace halyard
