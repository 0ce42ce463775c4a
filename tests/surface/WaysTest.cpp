// Services of today have habits that nothing laid down prepares the bot for. In each scenario it meets a
// service with one of them, without any way and with the one that is there for it; and with every way one
// that has them all.

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/RateTable.h"
#include "tests/surface/DeskScene.h"

#include <functional>

namespace halyard {
namespace {

constexpr const char* bot = "harbourbot";

struct Told : News {
    Lines lines;
    void RoomRefused(int code, const std::string& family, const std::string&) override {
        lines.push_back(family + " " + std::to_string(code));
    }
    void SignedOffElsewhere(int reason, const std::string& page) override {
        lines.push_back("elsewhere " + std::to_string(reason) + " " + page);
    }
    int bansAsked = 0;
    void BanAsked(std::int16_t, std::int32_t, BanRequestKind, const std::string&) override { ++bansAsked; }
    void BanAnswered(std::int16_t, std::int32_t, BanVerdict verdict, int) override {
        if (verdict == BanVerdict::NotEnforced) lines.push_back("not enforced");
    }
};

PracticeOptions Having(const Ways& habits) {
    PracticeOptions options;
    options.ways = habits;
    return options;
}

class Meeting : public Desk {
  public:
    Meeting(const Ways& habits, const Ways& ways, std::uint64_t seed = 1) : Desk(seed, Having(habits)) {
        control.Switches().SetWays(ways);
        control.SetNews(&told);
        Set(boxes.chkAutoLogin, true);
        Set(boxes.chkRejoinError, true);
    }
    Told told;

    void Enter(const std::string& room) {
        SignOn();
        Join(room);
        Start();
    }
    void Ask(const std::string& room, const std::string& exchange = "4") {
        boxes.txtChat.SetText(room);
        boxes.txtEx.SetText(exchange);
        window.chats.cmdJoinChat.Press();
    }
    std::string State() const { return window.connection.lblConnectionInfo.Caption(); }
    std::string Status() const { return window.chats.lblChatStatus.Caption(); }
    bool Here(const std::string& name) const { return network.IsInRoom("lobby", name); }
    /// "name/exchange" of the rooms in which the bot and the service agree that it is.
    std::string Rooms() const {
        std::string rooms;
        for (const auto& room : control.Chat)
            if (network.IsInRoom(room->ChatName, bot) && !room->Cookie.empty())
                rooms +=
                    room->ChatName + "/" + room->Cookie.substr(0, 1) + std::to_string(room->Exchange) + " ";
        return rooms;
    }
};

std::string Joined(const Lines& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "; ";
    return text;
}

std::string AnswersUnasked(Meeting& desk) {
    desk.SignOn();
    desk.Ask("lobby");
    desk.Wait(5);
    return desk.Rooms() + std::to_string(desk.network.Connections()) + " connections";
}

std::string RefusesBare(Meeting& desk) {
    desk.SignOn();
    desk.Ask("nowhere", "5");
    desk.Wait(1);
    desk.Ask("lobby", "3");
    desk.Wait(1);
    desk.Ask("deck");
    auto refusal = HexToStr("2A0200000000"
                            "00010001000000000001"
                            "0006"); // the service for rooms is out of order
    desk.control.ParsePacket(0, refusal);
    return Joined(desk.told.lines) + desk.Status();
}

std::string EnforcesNothing(Meeting& desk) {
    desk.people.Enter("lobby", "bob");
    desk.Enter("lobby");
    desk.control.CurrentRequestID = 34;
    desk.control.UpdateRequestID(); // past the id of a close
    const auto slot = desk.control.Chat.Item(1)->ChatIndex;
    desk.control.BanUser("bob", BanKind::Ban, slot);
    desk.control.UnbanUser("carol", BanKind::Unban, slot);
    const bool own = desk.control.RequestIDs.Item("35").empty();
    desk.control.CloseChat(slot);
    desk.Wait(20);
    return std::to_string(desk.control.RequestIDs.Count()) + " records, " +
           (own ? "own ids, " : "shared ids, ") + std::to_string(desk.told.lines.size()) + " told, " +
           std::to_string(desk.Transcript().size()) + " said";
}

std::string StopsInOrder(Meeting& desk) {
    desk.Enter("lobby");
    desk.people.Stop(20);
    desk.Wait(90);
    return desk.State() + " " + desk.Rooms();
}

std::string IsTaken(Meeting& desk, bool inFourBytes) {
    desk.Enter("lobby");
    if (inFourBytes) desk.people.Pause(bot), desk.Wait(1); // which makes only an empty end harmless
    desk.people.SignOffElsewhere(bot, inFourBytes);
    desk.Wait(90);
    return desk.State() + " " + Joined(desk.Happened("signs on")) + Joined(desk.told.lines);
}

std::string TellsEncodingLast(Meeting& desk) {
    desk.window.Engine().Lists().AddAW("damn", 0);
    desk.people.Enter("lobby", "bob");
    desk.Set(desk.boxes.chkAWOn, true);
    desk.Enter("lobby");
    desk.people.Say("lobby", "bob", FromUtf8("d\u00e9j\u00e0 da") + std::string(1, '\0') + "mn");
    desk.Wait(5);
    return desk.told.bansAsked == 0 ? "not heard" : "heard";
}

std::string WantsTheOldType(Meeting& desk) {
    desk.Set(desk.boxes.chkMD5Login, false);
    desk.window.connection.cmdSignOn.Press();
    desk.Wait(5);
    return desk.State();
}

std::string RatesLinesInTwo(Meeting& desk) {
    desk.Enter("lobby");
    desk.Wait(10);
    desk.Start();
    for (const int classId : {3, 4, 2}) desk.people.SetRate("lobby", bot, classId, RateCode::Alert);
    desk.Wait(1);
    return Joined(desk.Happened("says")) + (desk.control.Chat.Item(1)->IsRated(5) ? "lines rest" : "");
}

std::string RatesMessages(Meeting& desk) {
    Lines heard;
    desk.network.onEvent = [&](const PracticeEvent& event) {
        if (event.what.find("message") != event.what.npos) heard.push_back(event.what);
    };
    desk.people.BringOnLine("opal");
    desk.SignOn();
    for (int sent = 0; sent < 50; ++sent) desk.control.SendIM("opal", "hello"), desk.Wait(0.1);
    const bool stays = desk.network.IsOnLine(bot);
    desk.Wait(60);
    heard.clear();
    auto limit = HexToStr("2A020000000E"
                          "0001000A000000000000"
                          "00030003");
    desk.control.ParsePacket(0, limit); // never taken back
    for (const auto* text : {"now", "later"}) desk.control.SendIM("opal", text), desk.Wait(31);
    return std::string(stays ? "stays; " : "is thrown out; ") + Joined(heard);
}

std::string TakesTwoAtOnce(Meeting& desk) {
    desk.SignOn();
    desk.Ask("lobby", "4");
    desk.Wait(static_cast<double>(desk.world.chance.Between(0, 900)) / 1000);
    desk.Ask("deck", "5");
    desk.Wait(40);
    return desk.Rooms();
}

std::string Migrates(Meeting& desk) {
    desk.Enter("lobby");
    desk.world.network.StallFor(100); // so that the end behind it comes in one piece with the order to go
    desk.people.Migrate(bot);
    desk.Wait(0.15);
    desk.Ask("deck");
    desk.Wait(10); // at the return, and not when what was lost is asked for once more
    return desk.Rooms() + (desk.network.IsOnLine(bot) ? "on line" : "gone");
}

std::string IsJoinedTwice(Meeting& desk) {
    desk.Enter("lobby");
    desk.Ask("Lob by");
    desk.Wait(15);
    return Joined(desk.Happened("enters")) + desk.Status();
}

std::string RedirectsToItself(Meeting& desk) {
    desk.world.network.address = "192.0.2.7";
    desk.boxes.cmbServer.SetText("192.0.2.7");
    desk.window.connection.cmdSignOn.Press();
    desk.Wait(5);
    desk.Ask("lobby");
    desk.Wait(5);
    return desk.State() + " " + desk.Rooms();
}

std::string LetsAnyNameIn(Meeting& desk) {
    for (const auto* name : {"[Manual Command]", "OnlineHost", "bob", "carol"})
        desk.people.Enter("lobby", name);
    desk.boxes.chkBanGhosters.SetValue(1);
    desk.Enter("lobby");
    desk.people.Say("lobby", "OnlineHost", "bob rolled 2 6-sided dice: 3 4");
    desk.people.Say("lobby", "[Manual Command]", "op carol");
    desk.Wait(5);
    return std::to_string(desk.boxes.lstOps.ListCount()) + " ops, " + std::to_string(desk.told.bansAsked) +
           " bans";
}

struct Way {
    Departure departure;
    std::string (*happen)(Meeting&);
    const char* without;
    const char* with;
};

const Way ways[] = {
    {Departure::NavigationAnswers, AnswersUnasked, "lobby/44 51 connections", "lobby/44 3 connections"},
    {Departure::BareJoinRefusals, RefusesBare, "Joining chat 'deck' in Exchange '4' Instance '0'...",
     "000D 20; 000D 8; 000D 6; Join chat failed, unknown error."},
    {Departure::UnenforcedBans, EnforcesNothing, "0 records, shared ids, 3 told, 0 said",
     "0 records, own ids, 3 told, 0 said"},
    {Departure::MainSignOffs, StopsInOrder, "Online! ", "Online! lobby/44 "},
    {Departure::MainSignOffs, [](Meeting& desk) { return IsTaken(desk, false); }, "Online! ",
     "Offline elsewhere 1 http://127.0.0.1/displaced; "},
    {Departure::MainSignOffs, [](Meeting& desk) { return IsTaken(desk, true); },
     "Online! 2 Harbour Bot signs on; ", "Offline elsewhere 1 ; "},
    {Departure::WholeMessageBlocks, TellsEncodingLast, "not heard", "heard"},
    {Departure::RoastedPasswordType, WantsTheOldType, "Sending roasted login...", "Online!"},
    {Departure::RateClassesAsTold, RatesLinesInTwo,
     "0 Harbour Bot says « Rated! ---  »; 0 Harbour Bot says « Rated! ---  »; 0 Harbour Bot says « Rated! "
     "---  »; ",
     "0 Harbour Bot says « Rated! --- Rate Class ID: 5, Features disabled: Chat Messages -- Time disabled: "
     "30 "
     "seconds »; lines rest"},
    {Departure::RateClassesAsTold, RatesMessages, "is thrown out; ", "stays; sends opal the message later; "},
    {Departure::OneServiceRequest, Migrates, "on line", "lobby/44 deck/44 on line"},
    {Departure::RefusedSecondJoins, IsJoinedTwice,
     "0 Harbour Bot enters; Left chat 'Lob by' in Exchange '4' Instance '0'!",
     "Join chat failed, you are already in this chat."},
    {Departure::ReachableRedirects, RedirectsToItself, "Connecting to BOS Server... ", "Online! lobby/44 "},
    {Departure::NamesAreNoCommands, LetsAnyNameIn, "1 ops, 0 bans", "0 ops, 0 bans"},
};

TEST(Ways, EachMakesGoodWhatItIsThereFor) {
    const auto open = FindNetwork(BuiltInNetworks(), "Open server")->ways;
    for (const auto& way : ways) {
        SCOPED_TRACE(std::string(TextOf(way.departure).name) + ", row " + std::to_string(&way - ways));
        const auto own = WaysOf(way.departure);
        Meeting lacks(own, {});
        EXPECT_EQ(way.happen(lacks), way.without);
        Meeting has(own, own);
        EXPECT_EQ(way.happen(has), way.with);
        Meeting hasAll(open, open);
        EXPECT_EQ(way.happen(hasAll), way.with);
    }
}

TEST(Ways, TwoRoomsOpenUnderTheirOwnNames) {
    const auto own = WaysOf(Departure::OneServiceRequest);
    int both[2] = {};
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        Meeting lacks(own, {}, seed);
        Meeting has(own, own, seed);
        for (auto* desk : {&lacks, &has}) {
            desk->world.network.faults.latencyMax = 300;
            both[desk == &has] += TakesTwoAtOnce(*desk) == "lobby/44 deck/55 ";
        }
    }
    EXPECT_LT(both[0], 20);
    EXPECT_EQ(both[1], 40);
}

} // namespace
} // namespace halyard
