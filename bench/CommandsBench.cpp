// What a line, a joiner and a command cost a bot with long lists. The room has no connection: all that the
// bot says and asks for is made and paced, and goes nowhere.

#include "bench/SilentBot.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <benchmark/benchmark.h>
#include <string>

using namespace halyard;

namespace {

/// One room at slot 1 with the op "judge" and as many others as wanted.
struct Bot : SilentBot {
    static constexpr std::int16_t slot = 1;

    std::shared_ptr<Chats> room;

    explicit Bot(int people = 20) {
        control.DefaultChatSends();
        world.network.SilentConnects(1);
        control.JoinChat("Lobby", 4, 0);
        // A redirect to the room, whose host never answers.
        Feed(0, "00010005", MakeTLV("000D", 2, HexToStr("000E")) + MakeTLV("0005", 2, "127.0.0.1"));
        Feed(slot, "00010007", "");
        room = control.Room(slot);
        world.RunFor(3000);
        options.Ops.Add("judge");
        options.Perms.Add(FullPerms, "judge");
        room->UserJoined("judge");
        for (int number = 1; number < people; ++number) room->UserJoined("guest" + std::to_string(number));
    }
    void Feed(int Index, const std::string& snac, const std::string& body) {
        auto frame = std::string(6, '\0') + HexToStr(snac) + std::string(6, '\0') + body;
        control.ParsePacket(Index, frame);
    }
    void FillAutobans(std::int64_t count) {
        for (std::int64_t number = 0; number < count; ++number)
            options.Autobans.Add("nuisance" + std::to_string(number) + (number % 2 ? "*" : ""));
    }
    void FillAutowords(std::int64_t count) {
        for (std::int64_t number = 0; number < count; ++number)
            options.Autowords.Add("rude" + std::to_string(number) + "word");
    }
    /// Ends the pauses and drops what waits, so that every round is alike.
    void Rest() {
        room->ClearQueue(0);
        room->ClearQueue(1);
        room->tmrBan->SetEnabled(false);
    }
};

void LineThatIsNoCommand(benchmark::State& state) {
    Bot bot;
    for (int number = 0; number < 1000; ++number) {
        auto name = "friend" + std::to_string(number);
        bot.options.Ops.Add("op" + name);
        bot.options.Immunes.Add(name);
    }
    bot.FillAutobans(10'000);
    bot.FillAutowords(state.range(0));
    bot.options.WordBanOn = true;
    std::string line = "<HTML><BODY BGCOLOR=\"#ffffff\"><FONT LANG=\"0\">";
    while (line.size() < 300) line += "the rude word of the evening, ";
    line.resize(300);
    for (auto _ : state) bot.engine.ChatMessage(Bot::slot, "Guest 7", line);
}
BENCHMARK(LineThatIsNoCommand)->RangeMultiplier(10)->Range(100, 100'000);

void JoinAgainstAutobans(benchmark::State& state) {
    Bot bot;
    bot.FillAutobans(state.range(0));
    bot.options.AutobanLevel = 1;
    for (auto _ : state) bot.engine.UserJoinedChat(Bot::slot, "Quite Peaceful 123");
}
BENCHMARK(JoinAgainstAutobans)->Arg(10'000)->Arg(100'000);

void Query(benchmark::State& state, const char* line) {
    Bot bot;
    bot.FillAutobans(10'000);
    for (auto _ : state) {
        bot.engine.ChatMessage(Bot::slot, "Judge", line);
        bot.Rest();
    }
}
BENCHMARK_CAPTURE(Query, status, "status");
BENCHMARK_CAPTURE(Query, info, "info guest1");
BENCHMARK_CAPTURE(Query, help, "help");

void ChainOverPeople(benchmark::State& state) {
    Bot bot(static_cast<int>(state.range(0)));
    bot.options.ChainOn[2] = bot.options.ChainOn[3] = true;
    for (auto _ : state) {
        bot.engine.ChatMessage(Bot::slot, "Judge", "imm guest");
        bot.engine.ChatMessage(Bot::slot, "Judge", "unimm guest");
        bot.Rest();
    }
}
BENCHMARK(ChainOverPeople)->Arg(1000)->Unit(benchmark::kMillisecond);

void AddAndRemoveOneAutoban(benchmark::State& state) {
    Bot bot;
    for (std::int64_t number = 0; number < state.range(0); ++number)
        bot.engine.Lists().AddAB("nuisance" + std::to_string(number), 1);
    bool last = state.range(1) != 0;
    for (auto _ : state) {
        auto entry = last ? std::string("latest") : bot.options.Autobans.Item(state.range(0) / 2);
        if (!last) bot.engine.Lists().RemoveAB(entry, 1);
        bot.engine.Lists().AddAB(entry, 1);
        if (last) bot.engine.Lists().RemoveAB(entry, 1);
        bot.Rest();
    }
}
BENCHMARK(AddAndRemoveOneAutoban)->Args({100'000, 1})->Args({100'000, 0})->Unit(benchmark::kMicrosecond);

} // namespace
