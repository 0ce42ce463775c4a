// The whole bot without a window: from nothing to the first idle moment, and what its model holds in memory.

#include "platform/sim/SimPlatform.h"
#include "surface/frmMain.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace halyard {

namespace {

double HeapBytes() {
    auto use = mallinfo2();
    return static_cast<double>(use.uordblks + use.hblkhd);
}

void StartToIdle(benchmark::State& state) {
    for (auto _ : state) {
        SimWorld world;
        SimPlatform machine(world);
        frmMain window(machine);
        window.Form_Load();
        world.RunReady();
    }
}
BENCHMARK(StartToIdle)->Unit(benchmark::kMicrosecond);

/// Entries in each of the seven lists, names of about ten characters; counters in bytes.
void ModelMemory(benchmark::State& state) {
    for (auto _ : state) {
        auto before = HeapBytes();
        SimWorld world;
        SimPlatform machine(world);
        frmMain window(machine);
        window.Form_Load();
        auto empty = HeapBytes();
        auto& lists = window.Engine().Lists();
        for (int n = 0; n < state.range(0); ++n) {
            auto name = "person" + std::to_string(n);
            lists.AddOp(name, 0, "");
            lists.AddImm(name, 0);
            lists.AddAB(name + (n % 2 != 0 ? "*" : ""), 0);
            lists.AddAW(name, 0);
            lists.AddLockOp(name, 0);
            lists.AddLockImm(name, 0);
            lists.AddLockBan(name, 0);
        }
        state.counters["bot"] = empty - before;
        state.counters["lists"] = HeapBytes() - empty;
    }
}
BENCHMARK(ModelMemory)->Arg(0)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

} // namespace halyard
