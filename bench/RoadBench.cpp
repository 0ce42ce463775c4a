// The road of one line, from bytes on a socket to the end of ChatMessage, beside what the machine's own
// loopback takes for the same bytes; a frame of 101 TLVs; and an hour of a busy room on virtual time.

#include "bench/FedRoom.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halyard {

namespace {

void LineToChatMessage(benchmark::State& state) {
    FedRoom room;
    if (state.range(0) > 0) room.FillLists(static_cast<int>(state.range(0)));
    auto frame = LineFrame();
    for (auto _ : state) room.socket->Feed(frame);
}
BENCHMARK(LineToChatMessage)->Arg(0)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000);

void LoopbackOfTheSameBytes(benchmark::State& state) {
    int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    int sender = ::socket(AF_INET, SOCK_STREAM, 0);
    if (::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener, 1) != 0 ||
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        ::connect(sender, reinterpret_cast<sockaddr*>(&address), size) != 0) {
        state.SkipWithError("no loopback here");
        return;
    }
    int receiver = ::accept(listener, nullptr, nullptr);
    auto frame = LineFrame();
    std::string buffer(frame.size(), '\0');
    for (auto _ : state) {
        if (::send(sender, frame.data(), frame.size(), 0) != static_cast<ssize_t>(frame.size()) ||
            ::recv(receiver, buffer.data(), buffer.size(), MSG_WAITALL) !=
                static_cast<ssize_t>(buffer.size())) {
            state.SkipWithError("the loopback lost bytes");
            break;
        }
    }
    for (int descriptor : {receiver, sender, listener}) ::close(descriptor);
}
BENCHMARK(LoopbackOfTheSameBytes);

void Parse101TLVs(benchmark::State& state) {
    std::string many;
    for (int n = 0; n < 101; ++n) many += MakeTLV("0001", 2, "some value");
    Collection<std::string> list;
    for (auto _ : state) {
        auto input = many;
        list.Clear();
        ParseTLVs(input, list);
    }
}
BENCHMARK(Parse101TLVs);

/// One hour of a room with 100 people who say 20 lines a minute between them, bot and service together.
void VirtualHour(benchmark::State& state) {
    for (auto _ : state) {
        SimWorld world(5);
        SimPlatform machine(world);
        SimPlatform desk(world);
        PracticeNetwork network(machine, {});
        if (!network.Start()) {
            state.SkipWithError("the practice network did not start");
            return;
        }
        frmMain window(desk);
        window.Form_Load();
        network.Levers().SetMaxPeople("den", 150);
        for (int n = 0; n < 100; ++n) network.Levers().Enter("den", "guest" + std::to_string(n));
        auto& control = window.Control();
        control.Login("Bot", "pw", 5190, true, false, "127.0.0.1");
        world.RunUntil([&] { return control.LoggedOn(); }, 10000);
        control.JoinChat("den", 4, 0);
        world.RunFor(5000);
        for (int line = 0; line < 1200; ++line) {
            network.Levers().Say("den", "guest" + std::to_string(line % 100), "line " + std::to_string(line));
            world.RunFor(3000);
        }
        if (control.Chat.Count() != 1) state.SkipWithError("the bot is not in the room");
    }
}
BENCHMARK(VirtualHour)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace halyard
