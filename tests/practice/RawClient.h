#pragma once

// A client of the practice network that speaks bytes: a test says what it sends, and reads what came back.

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Md5.h"
#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "practice/Wire.h"
#include "practice/people/Script.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

/// A world with a practice network in it.
struct PracticeStage {
    explicit PracticeStage(PracticeOptions options = {}, std::uint64_t seed = 1)
        : world(seed), platform(world), network(platform, options) {
        network.onEvent = [this](const PracticeEvent& event) {
            journal.push_back(event.room + "|" + event.who + "|" + event.what);
        };
        EXPECT_TRUE(network.Start());
    }
    bool Noted(const std::string& line) const { return std::count(journal.begin(), journal.end(), line) > 0; }

    SimWorld world;
    SimPlatform platform;
    PracticeNetwork network;
    std::vector<std::string> journal;
};

class RawClient {
  public:
    explicit RawClient(PracticeStage& stage, int wait = 10)
        : stage(stage), socket(stage.platform.NewSocket()) {
        socket->onData = [this](std::size_t) { Receive(); };
        socket->onError = [this](int, const std::string&) { closed = true; };
        socket->Connect("127.0.0.1", stage.network.Port());
        Wait(wait);
    }

    const Socket& Raw() const { return *socket; }
    void Wait(int milliseconds = 20) { stage.world.RunFor(milliseconds); }
    void Bytes(const std::string& bytes, int wait = 20) { socket->Send(bytes), Wait(wait); }
    void Frame(int channel, const std::string& body, int wait = 20) {
        Bytes("*" + ByteToStr(channel) + WordToStr(sequence++) +
                  WordToStr(static_cast<long long>(body.size())) + body,
              wait);
    }
    void Ask(int family, int subtype, const std::string& body = "", std::uint32_t id = 7) {
        Frame(2, SnacBytes(family, subtype, id, body));
    }
    void Hang() { socket->Close(), Wait(); }

    /// The last SNAC of that kind that came, or an empty one.
    Snac Last(int family, int subtype) const {
        for (auto at = frames.rbegin(); at != frames.rend(); ++at)
            if (auto snac = ParseSnac(at->second);
                at->first == 2 && snac && snac->family == family && snac->subtype == subtype)
                return *snac;
        return {};
    }
    /// Family and subtype of all SNACs that came, in order, such as "000E0002 000E0003".
    std::string Keys() const {
        std::string keys;
        for (const auto& [channel, body] : frames)
            if (channel == 2) keys += (keys.empty() ? "" : " ") + StrToHex(body.substr(0, 4));
        return keys;
    }
    int Count(const std::string& key) const {
        auto keys = Split(Keys(), " ");
        return static_cast<int>(std::count(keys.begin(), keys.end(), key));
    }

    std::vector<std::pair<int, std::string>> frames;
    bool closed = false;

    // The usual dialogues, as far as a test does not look at them itself.
    static std::string Tlvs(const Snac& snac, int type) {
        auto list = ReadTlvs(snac.body);
        auto value = list ? FindTlv(*list, type) : nullptr;
        return value ? *value : "";
    }
    /// The hashed dialogue; gives the answer, 0017 0003.
    Snac Hashed(const std::string& name, const std::string& password, const std::string& salt, bool raw) {
        Frame(1, HexToStr("00000001"));
        Ask(0x0017, 0x0006, Tlv(0x0001, name) + Tlv(0x004B, "") + Tlv(0x005A, ""));
        auto key = Mid(Last(0x0017, 0x0007).body, 3);
        auto hash = Md5(key + (raw ? Md5(password) : password) + salt);
        Ask(0x0017, 0x0002, Tlv(0x0001, name) + Tlv(0x0025, hash) + (raw ? Tlv(0x004C, "") : ""), 9);
        return Last(0x0017, 0x0003);
    }
    /// Presents a cookie and goes through the service exchange, "client ready" included.
    void Begin(const std::string& cookie, bool ready = true) {
        Frame(1, HexToStr("00000001") + Tlv(0x0006, cookie));
        Ask(0x0001, 0x0017, HexToStr("00010004"));
        Ask(0x0001, 0x0006);
        if (ready) Ask(0x0001, 0x0002);
    }

  private:
    void Receive() {
        pending += socket->ReadAll();
        while (pending.size() >= 6) {
            auto length = static_cast<std::size_t>(*StrToWord(Mid(pending, 5, 2)));
            if (pending.size() < 6 + length) return;
            frames.emplace_back(pending[1], pending.substr(6, length));
            pending.erase(0, 6 + length);
        }
    }

    PracticeStage& stage;
    std::unique_ptr<Socket> socket;
    std::string pending;
    int sequence = 0;
};

/// A person with a main connection and, when asked for, navigation and rooms.
struct Guest {
    Guest(PracticeStage& stage, const std::string& name) : stage(stage), name(name) {
        RawClient auth(stage);
        auto answer =
            auth.Hashed(name, "secret",
                        stage.world.Now() % 2 ? "AOL Instant Messenger (SM)" : DefaultSecrets().salt, true);
        bos = std::make_unique<RawClient>(stage);
        bos->Begin(RawClient::Tlvs(answer, 0x0006));
    }
    /// A connection to a further service, up to "client ready".
    std::unique_ptr<RawClient> Open(int family, const std::string& more = "", bool ready = true) {
        bos->Ask(0x0001, 0x0004, WordToStr(family) + more);
        auto client = std::make_unique<RawClient>(stage);
        client->Begin(RawClient::Tlvs(bos->Last(0x0001, 0x0005), 0x0006), ready);
        return client;
    }
    /// The navigation's room block for a creation.
    std::string Create(const std::string& room) {
        auto navigation = Open(0x000D);
        navigation->Ask(0x000D, 0x0008,
                        WordToStr(4) + ShortString("create") + HexToStr("FFFF010003") +
                            Tlv(0x00D6, "us-ascii") + Tlv(0x00D3, room) + Tlv(0x00D7, "en"));
        return RawClient::Tlvs(navigation->Last(0x000D, 0x0009), 0x0004);
    }
    static std::string Wish(const std::string& room) {
        return Tlv(0x0001, WordToStr(4) + ShortString("4-0-" + room) + WordToStr(0));
    }
    void Join(const std::string& room, bool ready = true) {
        Create(room);
        chat = Open(0x000E, Wish(room), ready);
    }
    void Say(const std::string& text, int wait = 20) {
        chat->Frame(2, SnacBytes(0x000E, 0x0005, 5, Line(text)), wait);
    }
    static std::string Line(const std::string& text) {
        return HexToStr("0000000000000001") + WordToStr(3) + Tlv(0x0001, "") + Tlv(0x0006, "") +
               Tlv(0x0005, Tlv(0x0001, text) + Tlv(0x0002, "us-ascii")); // text first, as some clients do
    }

    PracticeStage& stage;
    std::string name;
    std::unique_ptr<RawClient> bos, chat;
};

/// The bot in its own room "r", and alice, who came after it.
struct InRoom : PracticeStage, ::testing::Test {
    InRoom() { bot.Join("r"), alice.Join("r"); }

    Guest bot{*this, "Bot"}, alice{*this, "alice"};
};

} // namespace halyard
