// What keeping settings costs: saving and loading a file with long lists, on a disk in memory. Loading goes
// the whole way, through the acts on lists with their replies, counts and lines in the list boxes.

#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "platform/sim/SimPlatform.h"
#include "state/Counters.h"
#include "state/EjectListFile.h"
#include "state/Options.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <string>

using namespace halyard;

namespace {

constexpr const char* SettingsPath = "/program/bench.hys";
constexpr const char* EjectsPath = "/program/bench.txt";

struct Bot : TillerEvents, MainWindowLink, CommandHost {
    Bot() {
        options.StartUp();
        control.DefaultChatSends();
    }

    bool GetAutoUnrate() const override { return true; }
    std::int16_t GetUnratePause() const override { return 5; }
    void Rated(int, const std::string&) override {}
    void Unrated(int, const std::string&, std::int16_t) override {}
    void ConsoleMessage(std::int16_t, const std::string&, const std::string&) override {}
    void AddConsoleUser(std::int16_t, const std::string&) override {}
    void RemoveConsoleUser(std::int16_t, const std::string&) override {}
    void IncomingIM(const std::string&, const std::string&) override {}
    void LockAdded(LockKind, const std::string&) override {}
    void LockRemoved(LockKind, const std::string&) override {}
    void SetUserInfoTimer(bool) override {}

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

    SimWorld world;
    SimPlatform platform{world};
    OscarSettings settings;
    TillerSock control{platform, settings, *this, *this};
    Options options{platform, control, settings};
    Counters counters{options, control};
    CommandEngine engine{options, control, counters, *this, platform.dialogs};
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
