// What the ledger and the watch cost the line that is no command and meets no word: without either, with a
// ledger that remembers no lines, with one that does, without one but 30 ns dearer, which has to be seen, and
// with the watch beside a ledger as it is by default. script/bench-line runs them by turns.

#ifdef HALYARD_SQLITE

#include "bench/FedRoom.h"
#include "platform/sqlite/InlineDatabase.h"
#include "surface/bridge/Bridge.h"

#include <chrono>

namespace halyard {

namespace {

enum Case : std::int64_t { Off, On, WithEvidence, Planted, Watched };

class NoFile : public InlineDatabase {
  public:
    void Open(const DatabaseSpec& spec, Opened done) override {
        auto inMemory = spec;
        inMemory.path.clear();
        InlineDatabase::Open(inMemory, std::move(done));
    }
};

/// How often a loop runs that takes 30 ns.
int TurnsOf30Nanoseconds() {
    constexpr int many = 10'000'000;
    const auto begin = std::chrono::steady_clock::now();
    for (int turn = 0; turn < many; ++turn) benchmark::DoNotOptimize(turn);
    const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - begin;
    return static_cast<int>(30 / (took.count() / many));
}

void LineWithLedger(benchmark::State& state) {
    const auto which = static_cast<Case>(state.range(0));
    FedRoom room;
    Bridge bridge(room.window);
    auto& telling = room.window.Control().Tell();
    if (which == Watched) {
        bridge.watch.truth.SignedOn("Bot"); // and the room was entered, before the bridge was there
        bridge.watch.truth.RoomOpened(1, "Harbour", 4);
        bridge.watch.truth.RoomEntered(1, "Harbour", 4);
    } else {
        bridge.heard.Remove(bridge.watch.truth);
        telling.frames = nullptr;
    }
    if (which == On || which == WithEvidence || which == Watched) {
        room.platform.databases = [] { return std::make_unique<NoFile>(); };
        LedgerTerms terms;
        terms.evidence = which != On;
        bridge.ledger.Take(terms);
    }
    const int planted = which == Planted ? TurnsOf30Nanoseconds() : 0;
    const auto frame = LineFrame();
    for (auto _ : state) {
        room.socket->Feed(frame);
        for (int turn = 0; turn < planted; ++turn) benchmark::DoNotOptimize(turn);
    }
}
BENCHMARK(LineWithLedger)->Arg(Off)->Arg(On)->Arg(WithEvidence)->Arg(Planted)->Arg(Watched);

} // namespace

} // namespace halyard

#endif
