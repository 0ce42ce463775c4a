#pragma once

// The control on a simulated network whose other end is scripted frame by frame: what was sent is read as
// text "channel hex", what is answered is written the same way.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

using Lines = std::vector<std::string>;

/// Writes down every event, names and values separated by "|".
class EventLog : public TillerEvents, public MainWindowLink {
  public:
    Lines lines;
    using Int = std::int16_t;
    Lines Take() { return std::exchange(lines, {}); }

    void NewEjectList(Text name, Int index) override { Note("NewEjectList", name, index); }
    void AddedEject(Text user, Int index, Int col) override { Note("AddedEject", user, index, col); }
    void RemovedEject(Text user, Int i, Int col) override { Note("RemovedEject", user, i, col); }
    void UpdatedStats(Text stats) override { Note("UpdatedStats", stats); }
    void LoggedIn(Text user, Text email, Text ip) override { Note("LoggedIn", user, email, ip); }
    void LoginStatus(Text action) override { Note("LoginStatus", action); }
    void LoginError(Text text, Int code) override { Note("LoginError", text, code); }
    void PrivacySettings(Int level, bool idle, bool typing, bool mobile) override {
        Note("PrivacySettings", level, idle, typing, mobile);
    }
    void LoggedOff() override { Note("LoggedOff"); }
    void Error(Text text, Int code, Int sub, Text family) override { Note("Error", text, code, sub, family); }
    void ConnectionLost(Int index, Text text) override { Note("ConnectionLost", index, text); }
    void JoinedChat(Text name, Int exchange, Int instance, Int index, Int people, Int length, Text ip,
                    Int detail) override {
        Note("JoinedChat", name, exchange, instance, index, people, length, ip, detail);
    }
    void LeftChat(Text name, Int exchange, Int instance, Int index, Text type) override {
        Note("LeftChat", name, exchange, instance, index, type);
    }
    void UserJoinedChat(Int index, Text name) override { Note("UserJoinedChat", index, name); }
    void UserLeftChat(Int index, Text name) override { Note("UserLeftChat", index, name); }
    void ChatMessage(Int index, Text name, Text text) override { Note("ChatMessage", index, name, text); }
    void InstantMessage(Text name, Text text, Int channel) override {
        Note("InstantMessage", name, text, channel);
    }
    void IncomingUserInfo(Text name, Int warning, std::int32_t idle, std::int32_t online, Text userClass,
                          Text encoding, Text profile) override {
        Note("IncomingUserInfo", name, warning, idle, online, userClass, encoding, profile);
    }
    bool GetAutoUnrate() const override { return true; }
    Int GetUnratePause() const override { return 5; }
    void Rated(int type, Text name) override { Note("Rated", type, name); }
    void Unrated(int type, Text name, Int index) override { Note("Unrated", type, name, index); }

  private:
    static std::string Shown(const std::string& value) { return value; }
    static std::string Shown(const char* value) { return value; }
    static std::string Shown(long long value) { return std::to_string(value); }
    template <typename... Values>
    void Note(const std::string& name, const Values&... values) {
        auto line = name;
        ((line += "|" + Shown(values)), ...);
        lines.push_back(line);
    }
};

/// A frame as bytes, from a hex body.
inline std::string Frame(const std::string& hexBody, int channel = 2) {
    auto body = HexToStr(hexBody);
    return "*" + ByteToStr(channel) + WordToStr(7) + WordToStr(static_cast<long long>(body.size())) + body;
}
inline std::string Hex(const std::string& bytes) { return StrToHex(bytes); }

/// What a frame as Take writes it says in a room: "ban id name", "unban id name", or a line's text.
inline std::string AskedOf(const std::string& frame) {
    auto bytes = HexToStr(frame.substr(2));
    auto key = SnacKey(bytes);
    auto who = std::to_string(StrToWord(Mid(bytes, 9, 2)).value_or(0)) + " " + Mid(bytes, 15);
    if (key == "000E0024") return "ban " + who;
    if (key == "000E0025") return "unban " + who;
    if (key != "000E0005") return "";
    Collection<std::string> parts, message;
    auto body = Mid(bytes, 21); // behind the cookie and the channel
    ParseTLVs(body, parts);
    body = parts.Item(6);
    ParseTLVs(body, message);
    return message.Item(6);
}

/// The service's end of one connection.
struct Peer {
    std::unique_ptr<Socket> socket;
    std::string received;

    void Send(const std::string& hexBody, int channel = 2) { socket->Send(Frame(hexBody, channel)); }
    /// What has come since the last call: "channel hex" a frame.
    Lines Take() {
        Lines frames;
        while (received.size() >= 6) {
            auto length = static_cast<std::size_t>(StrToWord(received.substr(4, 2)).value());
            frames.push_back(std::to_string(received[1]) + " " + Hex(received.substr(6, length)));
            received.erase(0, 6 + length);
        }
        return frames;
    }
};

class Wire : public ::testing::Test, public EventLog {
  protected:
    SimWorld world{7};
    SimPlatform bot{world}, service{world};
    OscarSettings settings;
    EventLog& events = *this;
    TillerSock control{bot, settings, *this, *this};
    std::unique_ptr<SocketServer> server = service.NewServer();
    std::vector<std::shared_ptr<Peer>> peers; // in the order in which they came

    Wire() {
        server->onConnection = [this](std::unique_ptr<Socket> socket) {
            auto peer = std::make_shared<Peer>(Peer{std::move(socket), {}});
            peer->socket->onData = [this, raw = peer.get()](std::size_t) {
                raw->received += raw->socket->ReadAll();
                Arrived(*raw);
            };
            peers.push_back(peer);
        };
        EXPECT_TRUE(server->Listen("127.0.0.1", 5190));
        control.DefaultChatSends();
        control.CreateTimer("tban");
    }

    /// Sees what has come before a test takes it.
    virtual void Arrived(Peer&) {}
    void Settle() { world.RunFor(50); }
    Peer& Last() { return *peers.back(); }
    void Answer(const std::string& hexBody, int channel = 2) { Answer(Last(), hexBody, channel); }
    void Answer(Peer& from, const std::string& hexBody, int channel = 2) {
        from.Send(hexBody, channel);
        Settle();
    }
    /// What the control tells of an answer, and of what came before it.
    Lines Told(Peer& from, const std::string& hexBody, int channel = 2) {
        Answer(from, hexBody, channel);
        return events.Take();
    }
    /// Signs on by the roasted dialogue, up to LoggedIn on the second connection.
    Peer& SignOn() {
        settings.LoginMD5 = false;
        control.Login("Bot", "pw", 5190, false, false, "127.0.0.1");
        Settle();
        Answer("00000001", 1);
        Answer(Hex(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "cookie")), 4);
        Answer("00090003000000000000");
        Last().Take();
        events.Take();
        return Last();
    }
    /// A redirect on BOS and the service exchange behind it, up to what follows 0001 0007. The new
    /// connection.
    Peer& Redirect(const std::string& family) {
        peers[1]->Send("00010005000000000000" +
                       Hex(MakeTLV("000D", 2, HexToStr(family)) + MakeTLV("0005", 2, "127.0.0.1") +
                           MakeTLV("0006", 2, "key")));
        Settle();
        Answer("00000001", 1);
        Answer("0001000300000000000000010003000E");
        Answer("0001001800000000000000010004000E0001");
        Last().Take();
        Answer("00010007000000000000");
        return Last();
    }
    /// A room "Den" on exchange 4 at socket 1 (2 when another came first), its information arrived.
    Peer& OpenRoom(const std::string& name = "Den", int maxLength = 2000) {
        control.JoinChat(name, 4, 0);
        auto& room = Redirect("000E");
        Answer(room, "000E0002000000000000" +
                         Hex(WordToStr(4) + MakeTLV("", 1, "4-0-" + name) + WordToStr(0) +
                             HexToStr("020003") + MakeTLV("006A", 2, name) +
                             MakeTLV("00D1", 2, WordToStr(maxLength)) + MakeTLV("00D2", 2, WordToStr(50))));
        room.Take();
        peers[1]->Take();
        events.Take();
        return room;
    }
};

} // namespace halyard
