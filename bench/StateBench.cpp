// What keeping settings costs: saving and loading a file with long lists, on a disk in memory. Loading goes
// the whole way, through the acts on lists with their replies, counts and lines in the list boxes.

#include "bench/SilentBot.h"
#include "state/EjectListFile.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <string>

using namespace halyard;

namespace {

constexpr const char* SettingsPath = "/program/bench.hys";
constexpr const char* EjectsPath = "/program/bench.txt";

struct Bot : SilentBot {
    Bot() {
        options.StartUp();
        control.DefaultChatSends();
    }

    /// So many entries in each of the seven lists; some with a mask.
    void FillLists(std::int64_t entries) {
        auto& lists = engine.Lists();
        for (std::int64_t number = 0; number < entries; ++number) {
            auto name = "name" + std::to_string(number * 7919 % entries);
            lists.AddOp(name, 0, "");
            lists.AddImm(name, 0);
            lists.AddAB(number % 3 ? name : name + "*", 0);
            lists.AddAW(name, 0);
            lists.AddLockOp(name, 0);
            lists.AddLockImm(name, 0);
            lists.AddLockBan(name, 0);
        }
    }
};

void SaveSettings(benchmark::State& state) {
    Bot bot;
    bot.FillLists(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(WriteSettings(bot.platform, bot.options, SettingsPath));
}
BENCHMARK(SaveSettings)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void LoadSettings(benchmark::State& state) {
    Bot bot;
    bot.FillLists(state.range(0));
    WriteSettings(bot.platform, bot.options, SettingsPath);
    const SettingsTarget target{bot.platform, bot.options, bot.engine.Lists(), {}};
    for (auto _ : state) ReadSettings(target, SettingsPath);
    if (bot.options.LockBans.Count() != static_cast<std::size_t>(state.range(0)))
        state.SkipWithError("entries got lost");
}
BENCHMARK(LoadSettings)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void LoadEjectLists(benchmark::State& state) {
    Bot bot;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        if (number % 10 == 0) {
            auto list = std::make_shared<EjectList>();
            list->ChatName = "room" + std::to_string(number);
            list->Exchange = 4;
            bot.control.EjectLists.Add(list);
        }
        bot.control.EjectLists.Item(static_cast<std::ptrdiff_t>(bot.control.EjectLists.Count()))
            ->AddEject("name" + std::to_string(number));
    }
    WriteEjectLists(bot.platform, bot.control, EjectsPath);
    ListBox ejected{"lstEjected"}, rooms{"lstEjectListChats"};
    Label count{"lblBanCount"}, current{"lblEjectListChat"};
    for (auto _ : state)
        ReadEjectLists(bot.platform, bot.control, {ejected, count, rooms, current}, EjectsPath);
}
BENCHMARK(LoadEjectLists)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
