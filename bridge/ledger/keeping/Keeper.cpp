#include "bridge/ledger/keeping/Keeper.h"

#include "bridge/ledger/Ledger.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

constexpr int EachDay = 24 * 60 * 60 * 1000; ///< ms
constexpr const char* NotOpen = "The ledger isn't open.";

} // namespace

Keeper::Keeper(Platform& platform, Ledger& ledger)
    : platform(platform), ledger(ledger), daily(platform.NewTimer()), pause(platform.NewTimer()) {
    daily->SetInterval(EachDay);
    daily->onTick = [this] { Prune(); };
    pause->SetInterval(StepPause);
    pause->onTick = [this] {
        pause->SetEnabled(false);
        Next();
    };
}

Keeper::~Keeper() { *lives = false; }

void Keeper::Start() {
    daily->SetEnabled(true);
    Prune();
}

void Keeper::Prune() {
    auto pruning = std::make_shared<Pruning>(days, platform.CalendarMilliseconds());
    Run([pruning](Connection& file) { return pruning->Step(file); }, {});
}

void Keeper::Run(Job step, std::function<void(const DatabaseResult&)> done) {
    waiting.push_back({std::move(step), std::move(done)});
    if (waiting.size() == 1) pause->SetEnabled(true);
}

void Keeper::Next() {
    if (waiting.empty()) return;
    const auto ended = [this](const DatabaseResult& result) {
        auto work = std::move(waiting.front());
        waiting.pop_front();
        if (!waiting.empty()) pause->SetEnabled(true);
        if (work.done) work.done(result);
    };
    auto* records = ledger.Records();
    if (!records) return ended({DatabaseFault::Failed, NotOpen});
    auto more = std::make_shared<bool>(false);
    records->Write([more, step = waiting.front().step](Connection& file) { *more = step(file); },
                   [this, more, ended, lives = lives](const DatabaseResult& result) {
                       if (!*lives) return;
                       if (result.Ok() && *more) return pause->SetEnabled(true);
                       ended(result);
                   });
}

void Keeper::Forget(const std::string& name, std::function<void(ForgetOutcome, const std::string&)> done) {
    ledger.BeforeForgetting();
    auto outcome = std::make_shared<ForgetOutcome>(ForgetOutcome::Unknown);
    auto first = std::make_shared<bool>(true);
    const auto step = [name, outcome, first](Connection& file) {
        if (!std::exchange(*first, false)) return MergeWords(file, false);
        *outcome = halyard::Forget(file, name);
        return *outcome == ForgetOutcome::Forgotten && MergeWords(file, true);
    };
    Run(step, [this, outcome, done = std::move(done)](const DatabaseResult& result) {
        auto* records = ledger.Records();
        if (!result.Ok() || !records) return done(*outcome, result.Ok() ? NotOpen : result.words);
        records->Maintain([](Connection& file) { ClearLog(file); },
                          [outcome, done](const DatabaseResult& cleared) { done(*outcome, cleared.words); });
    });
}

void Keeper::BackUp(const std::string& path, std::function<void(const std::string&)> done) {
    auto* records = ledger.Records();
    if (!records) return done(NotOpen);
    // So that nobody else can read it, and nothing is written over.
    if (!platform.FileSystem().CreateNew(path, {}))
        return done(path + " can't be made, or stands there already.");
    ledger.Flush();
    records->Maintain([path](Connection& file) { halyard::BackUp(file, path); },
                      [this, path, done = std::move(done), lives = lives](const DatabaseResult& result) {
                          if (!result.Ok() && *lives) platform.FileSystem().Remove(path);
                          done(result.words);
                      });
}

} // namespace halyard
