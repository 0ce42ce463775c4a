#pragma once

// What all fuzz targets share: the whole bot without a window, signed on by hand-fed bytes, with ops, immunes,
// autobans and autowords, and in one room. Sockets are always connected; every byte they "receive" is fed here,
// and every frame that the bot sends is checked for being one whole FLAP frame.

#include "oscar/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"
#include "state/Permissions.h"
#include "surface/frmMain.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace halyard::fuzz {

/// A finding that no sanitizer would see.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

class FedSocket;
/// The living sockets in the order of their making, which gives them their numbers.
using FedSockets = std::map<int, FedSocket*>;

class FedSocket : public Socket {
  public:
    explicit FedSocket(FedSockets& all) : all(all), number(all.empty() ? 0 : all.rbegin()->first + 1) {
        all[number] = this;
    }
    FedSocket(const FedSocket&) = delete;
    FedSocket& operator=(const FedSocket&) = delete;
    ~FedSocket() override { all.erase(number); }

    void Connect(const std::string&, std::int32_t port) override {
        open = port >= 1 && port <= 65535;
        waiting.clear();
    }
    void Send(std::string_view bytes) override {
        Require(bytes.size() >= 6 && bytes[0] == '*' && bytes[1] >= 1 && bytes[1] <= 5);
        Require(StrToWord(bytes.substr(4)) == static_cast<std::int32_t>(bytes.size() - 6));
    }
    std::string ReadAll() override { return std::exchange(waiting, {}); }
    void Close() override { open = false, waiting.clear(); }
    SocketState State() const override { return open ? SocketState::Connected : SocketState::Closed; }
    std::string RemoteAddress() const override { return open ? "127.0.0.1" : ""; }
    void SetLowWaterMark(std::size_t) override {}

    void Feed(std::string_view bytes) {
        if (!open) return;
        waiting += bytes;
        auto handler = onData; // the socket may be gone before it returns
        if (handler) handler(waiting.size());
    }
    void Fail() {
        if (!std::exchange(open, false)) return;
        auto handler = onError;
        if (handler) handler(10054, "reset");
    }

  private:
    FedSockets& all;
    const int number;
    bool open = false;
    std::string waiting;
};

class FedPlatform : public SimPlatform {
  public:
    using SimPlatform::SimPlatform;
    FedSockets sockets;
    std::unique_ptr<Socket> NewSocket() override { return std::make_unique<FedSocket>(sockets); }
};

inline std::string Flap(std::string_view body, int channel = 2) {
    return "*" + ByteToStr(channel) + WordToStr(0) + WordToStr(static_cast<long long>(body.size())) +
           std::string(body);
}
inline std::string Snac(const char* familyAndSubtype, std::string_view body) {
    return Flap(HexToStr(familyAndSubtype) + std::string(6, '\0') + std::string(body));
}

struct FuzzDesk {
    SimWorld world{1};
    FedPlatform platform{world};
    frmMain window{platform};
    TillerSock& control = window.Control();

    FuzzDesk() { window.Form_Load(); }

    void Feed(int socket, std::string_view bytes) {
        if (auto found = platform.sockets.find(socket); found != platform.sockets.end())
            found->second->Feed(bytes);
    }
    void Fail(int socket) {
        if (auto found = platform.sockets.find(socket); found != platform.sockets.end())
            found->second->Fail();
    }

    /// On line since two seconds and more in the room "lobby" on socket 1, as its owner.
    void SignOnAndJoin() {
        control.Settings.LoginMD5 = false;
        control.Login("Harbour Bot", "secret", 5190, false, false, "127.0.0.1");
        Feed(0, Flap(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "cookie"), 4));
        Feed(0, Snac("00090003", ""));
        Feed(0, Snac("00010005", HexToStr("000D0002000E")));
        Feed(1, Snac("00010007", ""));
        Feed(1, Snac("000E0002", WordToStr(4) + MakeTLV("", 1, "4-0-lobby") + WordToStr(0) + ByteToStr(2) +
                                     WordToStr(2) + MakeTLV("006A", 2, "lobby") +
                                     MakeTLV("00D1", 2, WordToStr(2000))));
        for (const auto* name : {"Harbour Bot", "Boss", "Some Guest"}) Enter(name);
        Feed(1, Snac("000E0030", "Harbour Bot"));
        world.RunFor(3000);
    }
    void Enter(const std::string& name) {
        Feed(1, Snac("000E0003", MakeTLV("", 1, name) + HexToStr("00000000")));
    }

    /// Entries on every list, and every watch of the auto-moderation on.
    void FillLists() {
        auto& options = window.options;
        auto& lists = window.Engine().Lists();
        lists.AddOp("boss", 0, FullPerms);
        lists.AddOp("mate", 0, "");
        lists.AddImm("friend", 0);
        lists.AddAB("spam*", 0);
        lists.AddAB("rowdy", 0);
        lists.AddAW("d*mn", 0);
        lists.AddAW("<a href", 0);
        options.SetWordBanOn(true);
        options.AutobanLevel = 1;
        options.BanAllICQs = options.CharBanOn = options.AutobanGhosts = options.IMComsOn = true;
        options.ReconnectOn = options.RejoinError = options.RejoinKicked = true;
        control.ChatSendOn = true;
        world.RunFor(12000); // past the pauses of what the lists said
    }
};

/// A desk that serves many inputs one after the other, for targets that begin by putting everything back.
inline FuzzDesk& KeptDesk() {
    static std::unique_ptr<FuzzDesk> desk;
    static int uses = 0;
    if (uses++ % 256 == 0) desk = std::make_unique<FuzzDesk>();
    desk->platform.dialogs.shown.clear();
    return *desk;
}

/// Bytes from the front of an input; behind its end everything is 0 or empty.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : left(reinterpret_cast<const char*>(data), size) {}

    bool Empty() const { return left.empty(); }
    int Byte() {
        auto bytes = Bytes(1);
        return bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
    }
    int Word() {
        auto high = Byte();
        return high * 256 + Byte();
    }
    std::string_view Bytes(std::size_t count) {
        auto taken = left.substr(0, count);
        left.remove_prefix(taken.size());
        return taken;
    }
    std::string_view Rest() { return Bytes(left.size()); }
    /// Up to the next line feed.
    std::string_view Line() {
        auto taken = Bytes(left.find('\n') == std::string_view::npos ? left.size() : left.find('\n'));
        Bytes(1);
        return taken;
    }

  private:
    std::string_view left;
};

} // namespace halyard::fuzz
