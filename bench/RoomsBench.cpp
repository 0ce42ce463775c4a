#include "rooms/Fold.h"

#include <benchmark/benchmark.h>

namespace halyard {

namespace {

// A long queue that is folded to its end: empty names never reach the limit.
void FoldWaiting(benchmark::State& state) {
    Collection<Msgs> waiting;
    for (int i = 0; i < state.range(0); ++i)
        waiting.Add({"oped", "%p", i == 0 ? "ann" : "", "Op: %p", "", "msg1", 0});
    for (auto _ : state) {
        state.PauseTiming();
        auto queue = waiting;
        state.ResumeTiming();
        benchmark::DoNotOptimize(FoldWaitingSends(queue, "oped", 6, false));
    }
}
BENCHMARK(FoldWaiting)->Arg(500)->Arg(5000);

// The everyday case: names, of which the limit takes a few, in front of many entries of other keys.
void FoldToTheLimit(benchmark::State& state) {
    Collection<Msgs> waiting;
    for (int i = 0; i < state.range(0); ++i)
        waiting.Add(
            {i % 2 ? "oped" : "immed", "%p", "someuser" + std::to_string(i), "Op: %p", "", "msg1", 0});
    for (auto _ : state) {
        state.PauseTiming();
        auto queue = waiting;
        state.ResumeTiming();
        benchmark::DoNotOptimize(FoldWaitingSends(queue, "oped", 6, false));
    }
}
BENCHMARK(FoldToTheLimit)->Arg(500)->Arg(5000);

} // namespace

} // namespace halyard
