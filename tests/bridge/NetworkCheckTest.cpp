// A check of a network, against practice networks of every habit, and against what goes wrong on the way.

#include "bridge/networks/check/NetworkCheck.h"

#include "bridge/networks/check/HexLog.h"
#include "tests/oscar/Wire.h"
#include "tests/practice/RawClient.h"

namespace halyard {
namespace {

struct CheckScene : PracticeStage {
    explicit CheckScene(PracticeOptions options = {}, std::uint64_t seed = 1)
        : PracticeStage(std::move(options), seed) {
        desk.SetNews(&check->Listener());
        check->onRow = [this](const CheckRow& row) {
            static constexpr const char* verdicts[] = {"works", "doesn't", "odd"};
            rows.push_back(std::string(verdicts[static_cast<int>(row.verdict)]) + " " + row.what + ": " +
                           row.detail);
        };
        check->onDone = [this] { done = true; };
    }
    /// Starts, and lets time pass to the end.
    const Lines& Run(const NetworkCheck::Terms& terms) {
        check->Start(terms);
        EXPECT_TRUE(check->Running());
        EXPECT_TRUE(world.RunUntil([this] { return done; }, 100000));
        EXPECT_FALSE(check->Running());
        return rows;
    }
    NetworkCheck::Terms Terms(std::size_t builtIn = 0) const {
        return {.network = BuiltInNetworks()[builtIn],
                .host = "127.0.0.1",
                .port = 5190,
                .name = "The Bot",
                .password = "secret",
                .hashed = true,
                .room = "den",
                .exchange = 4};
    }
    /// The rows in which `what` occurs.
    Lines Rows(const std::string& what) const {
        Lines found;
        for (const auto& row : rows)
            if (row.find(what) != row.npos) found.push_back(row);
        return found;
    }
    /// No timer of the machine runs, and no connection stands.
    bool IsQuiet() {
        const auto ticks = machine.ticks.had;
        world.RunFor(61000);
        return machine.ticks.had == ticks && world.network.ConnectionCount() == 0;
    }

    SimPlatform machine{world};
    OscarSettings settings;
    EventLog events;
    TillerSock desk{machine, settings, events, events};
    std::unique_ptr<NetworkCheck> check = std::make_unique<NetworkCheck>(machine, desk);
    Lines rows;
    bool done = false;
};

const Lines CommonRows = {
    "works Room: den, exchange 4, up to 50 people and lines of 2000 bytes",
    "works People: the room's list came, 1 with the bot itself", "works Talk: a line was said and heard back",
    "works User information: the bot's own came", "works Message: a message to itself came back"};

TEST(NetworkCheck, TellsWhatEachNetworkDoes) {
    CheckScene laidDown;
    laidDown.Run(laidDown.Terms());
    EXPECT_EQ(laidDown.rows[0],
              "odd Passwords: this server checks no passwords: anybody can be your op, and can "
              "sign the bot off by taking its name");
    EXPECT_EQ(laidDown.rows[1], "works Sign-on: signed on at 127.0.0.1");
    EXPECT_EQ(laidDown.Rows("Rates:"),
              Lines{"works Rates: messages are in class 3, room lines in 5, bans in 1, as is laid down"});
    EXPECT_EQ(laidDown.Rows("Bans:"), Lines{"works Bans: accepted, and lifted at once"});
    EXPECT_EQ(laidDown.Rows("Way").size(), laidDown.Rows("not met here").size());
    EXPECT_TRUE(laidDown.network.Bans("den").empty());
    EXPECT_EQ(std::count(laidDown.journal.begin(), laidDown.journal.end(), "|The Bot|signs on"), 1);
    EXPECT_TRUE(laidDown.events.lines.empty());
    EXPECT_TRUE(laidDown.IsQuiet());

    PracticeOptions options;
    options.ways = Ways().set();
    options.password = "secret";
    options.address = "10.1.1.1";
    for (const bool fits : {true, false}) {
        CheckScene open(options);
        open.world.network.address = "10.1.1.1"; // where 0.0.0.0 doesn't lead
        auto terms = open.Terms(fits ? 2 : 0);
        terms.host = "10.1.1.1";
        open.Run(terms);
        EXPECT_EQ(open.rows[0], "works Passwords: a wrong password is refused");
        for (const auto& row : CommonRows) EXPECT_EQ(open.Rows(row), Lines{row});
        EXPECT_EQ(open.Rows("Rates:")[0].substr(0, 3), fits ? "wor" : "odd");
        EXPECT_EQ(open.Rows("Bans:"),
                  Lines{"doesn't Bans: not enforced: the service knows no bans (bare word 0001)"});
        for (const char* way : {"navigation-answers: ", "unenforced-bans: ", "rate-classes-as-told: ",
                                "reachable-redirects: "}) {
            EXPECT_EQ(open.Rows(way).size(), 1U) << way;
            EXPECT_EQ(open.Rows(std::string(fits ? "works Way " : "doesn't Way ") + way), open.Rows(way));
        }
        EXPECT_TRUE(open.Rows("not met").empty());
    }
}

TEST(NetworkCheck, SaysWhatFailed) {
    struct Case {
        std::function<void(CheckScene&, NetworkCheck::Terms&)> make;
        Lines rows; ///< the first that aren't as usual
    };
    const auto skipped = "doesn't Sign-on: not tried: ";
    const auto refused = "works Passwords: a wrong password is refused";
    const Case cases[] = {
        {[](auto& scene, auto&) { scene.world.network.RefuseConnects(1); },
         {"doesn't Passwords: nothing could be reached there",
          std::string(skipped) + "nothing could be reached there", "doesn't Room: not tried: not signed on"}},
        {[](auto& scene, auto&) { scene.world.network.SilentConnects(1); },
         {"doesn't Passwords: no answer within 10 s", std::string(skipped) + "the service doesn't answer"}},
        {[](auto& scene, auto&) { scene.network.Levers().RefuseNextSignOn(24); },
         {"odd Passwords: refused with code 24 (Rate limit exceeded. Please try again later), which says "
          "nothing about passwords",
          std::string(skipped) + "the service limits sign-ons at the moment"}},
        {[](auto&, auto& terms) { terms.password = "other"; },
         {refused, "doesn't Sign-on: refused with code 5 (The password you entered is not valid.); it may be "
                   "the network's salt that is wrong"}},
        {[](auto&, auto& terms) { terms.hashed = false; },
         {refused, "works Sign-on: signed on at 127.0.0.1"}},
        {[](auto& scene, auto&) { scene.network.Levers().RefuseNextCreation(0x33); },
         {"doesn't Room: Join chat failed, invalid chat name. (family 000D, word 0033)",
          "doesn't People: not tried: not in a room"}},
        {[](auto&, auto& terms) { terms.room = " "; }, {"doesn't Room: not tried: no room was named"}},
        {[](auto& scene, auto&) { scene.network.Levers().SetOwner("den", "alice"); },
         {"odd Bans: refused with word 0048: the room isn't the bot's own, and nobody can be banned from "
          "it"}}};
    PracticeOptions options;
    options.password = "secret";
    for (const auto& each : cases) {
        SCOPED_TRACE(each.rows.back());
        CheckScene scene(options);
        auto terms = scene.Terms();
        each.make(scene, terms);
        scene.Run(terms);
        EXPECT_GE(scene.rows.size(), 9U);
        for (const auto& row : each.rows) EXPECT_EQ(scene.Rows(row), Lines{row});
        const auto connects = scene.world.network.Operations(SimNetwork::Operation::Connect);
        EXPECT_EQ(connects > 1, scene.Rows("Sign-on: not tried").empty());
        EXPECT_TRUE(scene.IsQuiet());
    }
}

TEST(NetworkCheck, EndsWhereverItIsCut) {
    CheckScene untouched;
    untouched.Run(untouched.Terms());
    const auto whole = static_cast<int>(untouched.world.Now());
    enum Cut { Drop, Stall, Stop, Destroy, StopAtRow, DestroyAtRow, Cuts };
    for (int cut = 0; cut < Cuts; ++cut)
        for (int at = 0; at < whole; at += cut < StopAtRow ? 1 : 9) {
            CheckScene scene;
            auto terms = scene.Terms();
            const auto step = static_cast<std::size_t>(at / 9);
            if (cut >= StopAtRow)
                scene.check->onRow = [&, rows = std::size_t(0)](const CheckRow&) mutable {
                    if (rows++ == step) cut == StopAtRow ? scene.check->Stop() : scene.check.reset();
                };
            scene.check->Start(terms);
            scene.world.RunFor(at);
            if (cut == Drop) {
                scene.world.network.DropAll();
                scene.world.RunFor(1000); // at once, without the deadlines
                EXPECT_TRUE(scene.done) << at;
            }
            if (cut == Stall) scene.world.network.StallFor(1000000);
            if (cut == Stop) scene.check->Stop();
            if (cut == Destroy) scene.check.reset();
            scene.world.RunFor(100000);
            EXPECT_TRUE(!scene.check || !scene.check->Running()) << cut << " at " << at;
            EXPECT_TRUE(scene.done || cut > Stall);
            EXPECT_TRUE(cut == Stall || scene.IsQuiet()) << cut << " at " << at;
            EXPECT_TRUE(cut <= Stall || scene.network.Bans("den").empty()) << cut << " at " << at;
            scene.desk.SetNews(nullptr);
        }
}

/// A service that answers a check as it should, or nearly, or with anything.
struct AnyService : Wire {
    explicit AnyService(std::uint64_t seed) {
        world.chance = SimRandom(seed);
        server->onConnection = [this, meet = server->onConnection](std::unique_ptr<Socket> socket) {
            meet(std::move(socket));
            Last().Send("00000001", 1);
        };
    }
    void TestBody() override {}
    /// How much of a whole check works.
    std::size_t Works(std::uint64_t seed) {
        NetworkCheck check(bot, control);
        std::size_t works = 0;
        bool done = false;
        check.onRow = [&](const CheckRow& row) { works += row.verdict == CheckVerdict::Works; };
        check.onDone = [&] { done = true; };
        check.Start({.network = BuiltInNetworks()[seed % 3],
                     .host = "127.0.0.1",
                     .name = "Bot",
                     .password = "secret",
                     .room = "d"});
        EXPECT_TRUE(world.RunUntil([&] { return done; }, 120000)) << seed;
        return works;
    }
    int Below(int bound) { return static_cast<int>(world.chance.Between(0, bound - 1)); }
    void Arrived(Peer& peer) override {
        static const Lines keys = {"00170003", "00010007", "00090003", "00010005", "00010012", "000D0009",
                                   "000D0001", "000E0002", "000E0003", "000E0006", "000E0001", "00040007",
                                   "0001000A", "00040001", "00020006", "0001000B", "00010001"};
        for (const auto& asked : peer.Take()) {
            auto answer = Usual(asked);
            if (Below(40) == 0) answer = keys[static_cast<std::size_t>(Below(17))] + "000048430000";
            for (auto more = Below(30) == 0 ? Below(40) : 0; more > 0; --more)
                answer += Hex(ByteToStr(Below(Below(8) == 0 ? 256 : 6)));
            if (!answer.empty()) peer.Send(answer, Below(60) == 0 ? 4 : 2);
        }
    }
    /// What belongs behind a frame as Take writes it.
    static std::string Usual(const std::string& asked) {
        static const std::string wayIn = "0005000E" + Hex("127.0.0.1:5190") + "00060001AA";
        static const std::map<std::string, std::string> answers = {
            {"00170006", "00170007+0003414243"},
            {"00170002", "00170003+" + wayIn},
            {"00000001", "00010003+0001000E"}, // with a cookie
            {"00010017", "00010018+00010004000E0001"},
            {"00010006", "00010007+0000"},
            {"00090002", "00090003+"},
            {"00010004", "00010005+000D0002?" + wayIn}, // of the family that was asked for,
            {"000D0002", "000D0009+000200010A"},
            {"000D0008", "000D0009+0004000A0004033430640000"},
            {"00010002", "000E0002+000403343064000001000100D1000207D0"},
            {"000E0024", "000E0001+0000"},
            {"00020015", "00020006+03426F7400000000"},
        };
        const auto found = answers.find(Mid(asked, 3, 8));
        if (found == answers.end() || asked.size() <= 10) return "";
        const auto words = Split(found->second, "+");
        return words[0] + "0000" + (words[0] == "000E0001" ? "48430000" : "00000000") +
               Replace(words[1], "?", Mid(asked, 23, 4));
    }
};

TEST(NetworkCheck, EndsWhateverTheServiceSays) {
    std::size_t works = 0;
    for (std::uint64_t seed = 1; seed <= 400; ++seed) works += AnyService(seed).Works(seed);
    EXPECT_GT(works, 800U); // they come far
}

/// Passes rates on, and counts what others would hear of bans.
struct BanCounter : News {
    explicit BanCounter(News& check) : check(check) {}
    void RateClasses(int socket, const std::string& body) override { check.RateClasses(socket, body); }
    void SignedOff() override { check.SignedOff(); }
    void BanAsked(std::int16_t, std::int32_t, BanRequestKind, const std::string&) override { ++told; }
    void BanAnswered(std::int16_t, std::int32_t, BanVerdict, int) override { ++told; }
    News& check;
    int told = 0;
};

/// What a desk holds that an act would change.
std::string Digest(const TillerSock& desk) {
    std::string digest =
        std::to_string(desk.CurrentRequestID) + " " + std::to_string(desk.RequestIDs.Count()) + " " +
        std::to_string(desk.EjectLists.Count()) + " " + std::to_string(desk.TimeBans.Count()) + " " +
        std::to_string(desk.TLVData.Count()) + " " + std::to_string(desk.GettingUserInfo);
    for (const auto& room : desk.Chat)
        digest += " " + room->ChatName + std::to_string(room->PeopleHere.Count()) + " " +
                  std::to_string(room->MsgQueue.Count()) + " " + std::to_string(room->BanQueue.Count()) +
                  " " + std::to_string(room->EjectListIndex) + " " + std::to_string(room->tmrBan->Enabled());
    return digest;
}

TEST(NetworkCheck, ChangesNothingOfTheBotWhoseSessionItUses) {
    for (const std::size_t network : {0, 2}) {
        PracticeOptions options;
        if (network == 2) options.ways = Ways().set();
        CheckScene scene(options);
        BanCounter bans(scene.check->Listener());
        scene.desk.SetNews(&bans);
        scene.desk.UseNetwork(BuiltInNetworks()[network]);
        scene.desk.Login("The Bot", "pw", 5190, true, false, "127.0.0.1");
        scene.world.RunFor(1000);
        scene.desk.JoinChat("den", 4, 0);
        scene.world.RunFor(5000);
        const auto before = Digest(scene.desk);
        scene.events.Take();
        scene.journal.clear();
        scene.Run(scene.Terms(network));
        scene.world.RunFor(1000);
        EXPECT_EQ(Digest(scene.desk), before);
        EXPECT_EQ(scene.events.Take(), Lines{});
        EXPECT_EQ(bans.told, 0);
        EXPECT_EQ(scene.rows[0], "works Room: the bot is in den");
        EXPECT_EQ(scene.rows[3], "works User information: the bot's own came");
        EXPECT_EQ(scene.rows[4],
                  network == 0 ? "works Bans: accepted, and lifted at once"
                               : "doesn't Bans: not enforced: the service knows no bans (bare word 0001)");
        EXPECT_EQ(scene.Rows("Rates: messages are in class 3").size(), 1U);
        EXPECT_EQ(scene.journal.size(), network == 0 ? 2U : 0U); // banned and let in; no word in the room
        EXPECT_TRUE(scene.desk.LoggedOn());

        auto elsewhere = scene.Terms(network);
        elsewhere.room = "another";
        scene.rows.clear(), scene.done = false;
        scene.Run(elsewhere);
        EXPECT_EQ(scene.rows[0], "odd Room: not tried: while the bot is signed on, it must be in the room");
        EXPECT_EQ(scene.Rows("Bans:"), Lines{"doesn't Bans: not tried: not in a room"});
        EXPECT_FALSE(scene.network.IsInRoom("another", "The Bot"));

        scene.rows.clear(), scene.done = false;
        scene.check->Start(scene.Terms(network));
        scene.desk.LogOff();
        scene.world.RunUntil([&] { return scene.done; }, 1000);
        EXPECT_EQ(scene.Rows("not signed on").size(), scene.rows.size());
        scene.desk.SetNews(nullptr);
    }
}

TEST(NetworkCheck, GivesWayToTheBot) {
    CheckScene scene;
    scene.check->Start(scene.Terms());
    scene.world.RunFor(20);
    scene.desk.Login("The Bot", "pw", 5190, true, false, "127.0.0.1");
    scene.world.RunFor(5000);
    EXPECT_EQ(scene.rows.back(), "doesn't Check: ended: the bot signs on itself");
    EXPECT_TRUE(scene.done && scene.desk.LoggedOn());
}

TEST(HexLog, ShowsFramesAndNoSecrets) {
    // the channel, the body, and what is shown of it with "~" for what is left out
    const std::tuple<int, const char*, const char*> cases[] = {
        {1, "00000001000600034B4559", "channel 1: ~"},
        {2, "000E000500000000000741", "sent on channel 2, 000E 0005: 00 0E 00 05 00 00 00 00 00 07 41"},
        {2, "0017000200000000000100250001AA", ", 0017 0002: 00 17 00 02 00 00 00 00 00 01 ~"},
        {2, "00010005000000000001000D0002000E000600034B4559", "00 01 00 0D 00 02 00 0E 00 06 00 03 ~"},
        {2, "000100058000000000010006000100020004000600034B4559", "00 01 00 02 00 04 00 06 00 03 ~"},
        {2, "000100120000000000010000000600034B4559", "00 01 00 00 00 06 00 03 ~"},
        {2, "00010005000000000001000600094B4559", "00 01 00 05 00 00 00 00 00 01 ~"}, // cut short
        {2, "0001", "channel 2: 00 01"},
        {4, "0001000141000600034B455900050001AA", "channel 4: 00 01 00 01 41 00 06 00 03 ~ 00 05 00 01 AA"},
        {4, "000600044B4559", "channel 4: ~"}, // cut short
        {4, "00090001", "channel 4: 00 09 00 01"}};
    for (const auto& [channel, body, shown] : cases) {
        HexLog log;
        log.Add(12, 3, true, channel, HexToStr(body));
        const auto line = Replace(log.Text(), "\xB7\xB7", "~");
        EXPECT_TRUE(line.starts_with("12 ms, socket 3, sent on channel ")) << line;
        EXPECT_TRUE(line.ends_with(std::string(shown) + "\n")) << line;
    }
    HexLog log;
    for (int line = 0; line < 40; ++line) log.Add(line, 0, false, 2, std::string(65535, 'x'));
    EXPECT_LE(log.Text().size(), HexLog::Most + 100);
    const auto gone = static_cast<int>(Val(log.Text()));
    EXPECT_GT(gone, 20);
    EXPECT_NE(log.Text().find(" older lines were left out.\n" + std::to_string(gone) + " ms, "),
              std::string::npos);
    EXPECT_NE(log.Text().find("\n39 ms, "), std::string::npos);
}

} // namespace
} // namespace halyard
