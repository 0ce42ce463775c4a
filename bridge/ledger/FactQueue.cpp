#include "bridge/ledger/FactQueue.h"

#include "bridge/ledger/Scribe.h"
#include "platform/Platform.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

/// A batch that no wait helps is given up after so many tries.
constexpr int MostFailures = 3;

} // namespace

FactQueue::FactQueue(Platform& platform)
    : platform(platform), timer(platform.NewTimer()), scribe(std::make_shared<Scribe>()) {
    timer->onTick = [this] { Tick(); };
}

FactQueue::~FactQueue() = default;

void FactQueue::Close() {
    timer->SetEnabled(false);
    if (database && state != State::Refused) {
        if (gap.facts > 0) EndGap();
        if (state == State::Opening || (state == State::Beginning && failing)) Begin();
        if (underWay) batches.pop_front(); // its answer will be nobody's
        for (const auto& batch : batches) Hand(batch, {});
    }
    state = State::Refused;
    database.reset();
    batches.clear();
}

void FactQueue::Open(const std::string& newPath, const std::string& newVersion) {
    path = newPath;
    version = newVersion;
    database = platform.NewDatabase();
    if (!database) {
        state = State::Refused;
        return;
    }
    TryToOpen();
}

void FactQueue::TryToOpen() {
    state = State::Opening;
    database->Open(LedgerSpec(path, platform.CalendarSeconds()),
                   [this](OpenOutcome outcome, const std::string& words) { Opened(outcome, words); });
}

void FactQueue::Opened(OpenOutcome outcome, const std::string& words) {
    if (IsOpen(outcome)) {
        if (outcome == OpenOutcome::Damaged) Tell(words);
        Begin();
        return;
    }
    // Neither need stay so.
    if (outcome == OpenOutcome::Failed || outcome == OpenOutcome::Locked)
        return Failed({DatabaseFault::NotWritable, words});
    state = State::Refused;
    batches.clear();
    count = 0;
    timer->SetEnabled(false);
    Tell("Nothing is kept in the ledger: " + words);
    if (onHealth) onHealth(false, "Nothing is kept in it: " + words);
}

void FactQueue::Begin() {
    state = State::Beginning;
    auto began = std::make_shared<Scribe::Began>();
    database->Write([scribe = scribe, began, at = platform.CalendarMilliseconds(),
                     version = version](Connection& file) { *began = scribe->Begin(file, at, version); },
                    [this, began](const DatabaseResult& result) {
                        if (!result.Ok()) return Failed(result);
                        actsBefore = began->acts;
                        state = State::Ready;
                        Worked();
                        if (count > 0) Arm(Pause);
                    });
}

void FactQueue::Add(Fact&& fact) {
    if (state == State::Refused) return;
    const bool closed =
        batches.empty() || (underWay && batches.size() == 1) || batches.back()->facts.size() >= BatchFacts;
    if (closed) {
        batches.push_back(std::make_shared<Batch>());
        batches.back()->facts.reserve(BatchFacts);
        batches.back()->since = platform.CalendarMilliseconds();
    }
    batches.back()->facts.push_back(std::move(fact));
    if (++count > MostFacts) Drop(underWay ? 1 : 0);
    if (failing || underWay || state != State::Ready) return;
    if (batches.front()->facts.size() >= BatchFacts)
        SendNext();
    else
        Arm(Pause);
}

void FactQueue::Flush() {
    if (onBatch) onBatch();
    flushing = true;
    if (!underWay) SendNext();
}

void FactQueue::SendNext() {
    while (state == State::Ready && !underWay && Waits()) {
        if (gap.facts > 0) {
            EndGap(); // which may have sent one
            continue;
        }
        underWay = true;
        Hand(batches.front(), [this](const DatabaseResult& result) { Written(result); });
        if (underWay || failing) return;
        if (!flushing && (batches.empty() || batches.front()->facts.size() < BatchFacts)) break;
    }
    flushing = false;
    if (state == State::Ready && Waits()) Arm(Pause);
}

void FactQueue::Hand(const std::shared_ptr<Batch>& batch, Database::Done done) {
    database->Write([scribe = scribe, batch, fresh = std::exchange(fresh, false)](
                        Connection& file) { scribe->Write(file, batch->facts, fresh); },
                    std::move(done));
}

void FactQueue::Written(const DatabaseResult& result) {
    underWay = false;
    if (!result.Ok()) {
        fresh = true;
        if (result.fault == DatabaseFault::Failed && ++failures >= MostFailures) Drop(0);
        return Failed(result);
    }
    failures = 0;
    count -= batches.front()->facts.size();
    batches.pop_front();
    Worked();
    if (onWritten) onWritten();
    if (batches.empty()) flushing = false;
    if (flushing || (!batches.empty() && batches.front()->facts.size() >= BatchFacts)) return SendNext();
    if (!batches.empty()) Arm(Pause);
}

void FactQueue::Failed(const DatabaseResult& result) {
    flushing = false;
    Arm(RetryPause);
    if (std::exchange(failing, true)) return;
    Tell("The ledger can't be written: " + result.words + " What happens is held in memory until it can.");
    if (onHealth) onHealth(false, result.words + " What happens is held in memory until it can be written.");
}

void FactQueue::Worked() {
    if (!std::exchange(failing, false)) return;
    Tell("The ledger is written again.");
    if (onHealth) onHealth(true, "It is written again.");
}

void FactQueue::Drop(std::size_t place) {
    if (place >= batches.size()) return;
    const auto& lost = *batches[place];
    for (const auto& fact : lost.facts) {
        const auto* before = std::get_if<GapFact>(&fact);
        if (gap.facts == 0) gap.at = before ? before->at : lost.since;
        gap.facts += before ? before->facts : 1;
    }
    failures = 0;
    count -= lost.facts.size();
    batches.erase(batches.begin() + static_cast<std::ptrdiff_t>(place));
}

/// The lost ones were the oldest: their gap stands before what is left, and whole contents behind it. A whole
/// content on the way is no longer what the changes before it lead to.
void FactQueue::EndGap() {
    for (const auto& batch : batches)
        for (auto& fact : batch->facts)
            if (auto* whole = std::get_if<WholeFact>(&fact)) whole->begins = true;
    auto ended = std::exchange(gap, {});
    ended.until = platform.CalendarMilliseconds();
    auto first = std::make_shared<Batch>();
    first->since = ended.at;
    first->facts.emplace_back(ended);
    batches.push_front(std::move(first));
    ++count;
    if (onGapEnd) onGapEnd();
}

void FactQueue::Tick() {
    timer->SetEnabled(false);
    if (state == State::Opening) return TryToOpen();
    if (state == State::Beginning) return Begin();
    if (underWay) return;
    if (onBatch) onBatch();
    SendNext();
}

void FactQueue::Arm(int pause) {
    if (timer->Enabled() && timer->Interval() == pause) return;
    timer->SetInterval(pause);
    timer->SetEnabled(true);
}

void FactQueue::Tell(const std::string& words) const {
    if (onTell) onTell(words);
}

} // namespace halyard
