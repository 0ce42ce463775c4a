#pragma once

// A bot in a room, fed with bytes that no network carried.

#include "oscar/wire/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"
#include "surface/frmMain.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

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

inline std::string FlapFrame(const std::string& body, int channel = 2) {
    return "*" + ByteToStr(channel) + WordToStr(0) + WordToStr(static_cast<long long>(body.size())) + body;
}

/// A line of 300 characters that is no command and meets no word.
inline std::string LineFrame() {
    std::string text;
    while (text.size() < 300) text += "the harbour lay quiet under a pale moon ";
    text.resize(300);
    return FlapFrame(HexToStr("000E0006000000000000"
                              "0000000000000000"
                              "0003") +
                     MakeTLV("0003", 2, MakeTLV("", 1, "Some Guest") + HexToStr("00000000")) +
                     MakeTLV("0001", 2, "") +
                     MakeTLV("0005", 2,
                             MakeTLV("0002", 2, "us-ascii") + MakeTLV("0003", 2, "en") +
                                 MakeTLV("0001", 2, "<HTML><BODY>" + text + "</BODY></HTML>")));
}

/// The bot in a room on the second of its sockets, past the first seconds.
struct FedRoom {
    SimWorld world{1};
    FedPlatform platform{world};
    frmMain window{platform};
    FedSocket* socket = nullptr;

    FedRoom() {
        window.Form_Load();
        auto& control = window.Control();
        control.Settings.LoginMD5 = false;
        control.Login("Bot", "pw", 5190, false, false, "127.0.0.1");
        platform.sockets[0]->Feed(
            FlapFrame(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "c"), 4));
        platform.sockets[0]->Feed(FlapFrame(HexToStr("00090003000000000000")));
        platform.sockets[0]->Feed(FlapFrame(HexToStr("00010005000000000000000D0002000E")));
        socket = platform.sockets[1];
        socket->Feed(FlapFrame(HexToStr("00010007000000000000")));
        world.RunFor(3000);
        socket->Feed(FlapFrame(HexToStr("000E0003000000000000") + MakeTLV("", 1, "Some Guest") +
                               HexToStr("00000000")));
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

} // namespace halyard
