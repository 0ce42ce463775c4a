// The road of one line, from bytes on a socket to the end of ChatMessage, beside what the machine's own
// loopback takes for the same bytes; a frame of 101 TLVs; and an hour of a busy room on virtual time.

#include "oscar/wire/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "surface/frmMain.h"

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <unistd.h>

namespace halyard {

namespace {

/// A socket that is always connected and gives what it was fed.
class FedSocket : public Socket {
  public:
    void SetTls(std::optional<TlsTerms>) override {}
    void Connect(const std::string&, std::int32_t) override {}
    void Send(std::string_view bytes) override { benchmark::DoNotOptimize(bytes.data()); }
    std::string ReadAll() override { return std::exchange(waiting, {}); }
    void Close() override {}
    SocketState State() const override { return SocketState::Connected; }
    std::string RemoteAddress() const override { return "127.0.0.1"; }
    void SetLowWaterMark(std::size_t) override {}
    void Feed(const std::string& bytes) {
        waiting = bytes;
        onData(waiting.size());
    }

  private:
    std::string waiting;
};

class FedPlatform : public SimPlatform {
  public:
    using SimPlatform::SimPlatform;
    std::vector<FedSocket*> sockets;
    std::unique_ptr<Socket> NewSocket() override {
        auto socket = std::make_unique<FedSocket>();
        sockets.push_back(socket.get());
        return socket;
    }
};

std::string Frame(const std::string& body, int channel = 2) {
    return "*" + ByteToStr(channel) + WordToStr(0) + WordToStr(static_cast<long long>(body.size())) + body;
}

/// A line of 300 characters that is no command and meets no word.
std::string LineFrame() {
    std::string text;
    while (text.size() < 300) text += "the harbour lay quiet under a pale moon ";
    text.resize(300);
    return Frame(HexToStr("000E0006000000000000"
                          "0000000000000000"
                          "0003") +
                 MakeTLV("0003", 2, MakeTLV("", 1, "Some Guest") + HexToStr("00000000")) +
                 MakeTLV("0001", 2, "") +
                 MakeTLV("0005", 2,
                         MakeTLV("0002", 2, "us-ascii") + MakeTLV("0003", 2, "en") +
                             MakeTLV("0001", 2, "<HTML><BODY>" + text + "</BODY></HTML>")));
}

/// The bot in a room on the second of its sockets, past the first seconds.
struct Room {
    SimWorld world{1};
    FedPlatform platform{world};
    frmMain window{platform};
    FedSocket* socket = nullptr;

    Room() {
        window.Form_Load();
        auto& control = window.Control();
        control.Settings.LoginMD5 = false;
        control.Login("Bot", "pw", 5190, false, false, "127.0.0.1");
        platform.sockets[0]->Feed(Frame(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "c"), 4));
        platform.sockets[0]->Feed(Frame(HexToStr("00090003000000000000")));
        platform.sockets[0]->Feed(Frame(HexToStr("00010005000000000000000D0002000E")));
        socket = platform.sockets[1];
        socket->Feed(Frame(HexToStr("00010007000000000000")));
        world.RunFor(3000);
        socket->Feed(
            Frame(HexToStr("000E0003000000000000") + MakeTLV("", 1, "Some Guest") + HexToStr("00000000")));
    }
    void FillLists(int words) {
        auto& options = window.options;
        for (int n = 0; n < 1000; ++n) {
            auto name = "person" + std::to_string(n);
            options.Ops.Add(name);
            options.Immunes.Add(name);
        }
        for (int n = 0; n < 10000; ++n)
            options.Autobans.Add("bad" + std::to_string(n) + (n % 2 != 0 ? "*" : ""));
        for (int n = 0; n < words; ++n) options.Autowords.Add("word" + std::to_string(n) + "x");
        options.AutobanLevel = 1;
        options.SetWordBanOn(true);
    }
};

void LineToChatMessage(benchmark::State& state) {
    Room room;
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
