// The guards: in each scenario the same happens to the bot twice, with the one guard off, where it does what
// it always did, and on.

#include "bridge/guards/GuardList.h"
#include "surface/bridge/Bridge.h"
#include "tests/surface/DeskScene.h"

#include <functional>

namespace halyard {
namespace {

constexpr const char* guarded = "harbourbot";

class GuardedDesk : public Desk {
  public:
    explicit GuardedDesk(Departure guard, bool on) {
        bridge.Start();
        GuardTerms terms;
        terms.Decide(guard, on ? Departures::Guard::On : Departures::Guard::Unset);
        bridge.TakeGuards(terms);
        Set(boxes.chkAutoLogin, true);
        Set(boxes.chkRejoinError, true);
    }
    Bridge bridge{window};

    std::int16_t Enter(const std::string& room) {
        SignOn();
        Join(room);
        Start();
        return control.Chat.Item(1)->ChatIndex;
    }
    void Ask(const std::string& room, const std::string& exchange = "4") {
        boxes.txtChat.SetText(room);
        boxes.txtEx.SetText(exchange);
        window.chats.cmdJoinChat.Press();
    }
    /// As from the wire.
    void Hear(std::int16_t slot, const std::string& name, const std::string& line) {
        window.Context().engine.ChatMessage(slot, name, line);
    }
    void Answer(const std::string& text) { control.PrepareSends("", "%p", text, "", "help", "msg3", 1); }
    /// The seconds at which `what` happened.
    std::string Seconds(const std::string& what) const {
        std::string seconds;
        for (const auto& line : Happened(what)) seconds += line.substr(0, line.find(' ')) + " ";
        return seconds;
    }
    /// "name/exchange" of the rooms in which the bot and the service agree that it is.
    std::string Rooms() const {
        std::string rooms;
        for (const auto& room : control.Chat)
            if (!room->Cookie.empty() && network.IsInRoom(room->ChatName, guarded))
                rooms += room->ChatName + "/" + std::to_string(room->Exchange) + " ";
        return rooms;
    }
    std::string Said() const {
        std::string said;
        for (const auto& line : Happened("says ")) {
            said += line.substr(0, line.find(' ')) + " " + line.substr(line.rfind("says ") + 5) + "; ";
        }
        return said;
    }
    /// Whether the operator was told of `what`.
    std::string Told(const std::string& what) const {
        for (const auto& line : Listed(bridge.foot.lstTold))
            if (line.find(what) != std::string::npos) return " told";
        return "";
    }
    GuardCount Count(Departure guard) {
        GuardCount count;
        bridge.guards.book.Ask(
            [&](const GuardCounts& counts) { count = counts[static_cast<std::size_t>(guard)]; });
        return count;
    }
};

using Scenario = std::function<std::string(GuardedDesk&)>;

std::string SignsOffMeanwhile(GuardedDesk& desk) {
    desk.Enter("lobby");
    desk.world.network.RefuseConnects(1);
    desk.people.Drop(guarded);
    desk.Wait(5);
    desk.window.connection.cmdSignOff.Press();
    desk.Wait(40);
    return desk.Seconds("signs on");
}

std::string IsSignedOff(GuardedDesk& desk) {
    desk.Enter("lobby");
    desk.people.SignOffElsewhere(guarded, false);
    desk.Wait(5);
    return desk.window.connection.lblConnectionInfo.Caption() + desk.Told("signed on elsewhere");
}

std::string IsNotAnswered(GuardedDesk& desk) {
    desk.Enter("lobby");
    desk.Wait(27); // the first question is answered
    desk.people.FallSilent(guarded);
    desk.Start();
    desk.Wait(300);
    return desk.Seconds("signs on") + desk.Rooms();
}

std::string MayNotEnter(GuardedDesk& desk) {
    desk.SignOn();
    desk.people.RefuseNextCreation(0x32); // an improper name
    desk.Ask("deck");
    desk.Wait(30);
    desk.people.SetMaxPeople("lobby", 3);
    desk.people.Fill("lobby");
    desk.Start();
    desk.Ask("lobby");
    desk.Wait(140);
    desk.people.Leave("lobby", "crowd1");
    desk.Wait(120);
    return desk.Seconds("is not let in") + "in at " + desk.Seconds("Bot enters") + desk.Rooms() +
           desk.Told("deck is given up");
}

std::string LosesAllRooms(GuardedDesk& desk) {
    desk.SignOn();
    desk.Join("lobby");
    desk.boxes.txtEx.SetText("5");
    desk.Join("lobby");
    desk.boxes.txtEx.SetText("4");
    desk.Join("deck");
    desk.Join("quay");
    desk.window.chats.lstChats.Select(3);
    desk.window.chats.cmdLeaveChat.Press();
    for (const auto* room : {"lobby", "deck"}) desk.people.DropFromRoom(room, guarded);
    desk.people.SignOffFromRoom("lobby", guarded);
    desk.Wait(1);
    desk.people.Drop(guarded);
    desk.Wait(60);
    return desk.Rooms();
}

std::string SpeaksToItself(GuardedDesk& desk) {
    desk.people.Enter("lobby", "eve");
    desk.MakeOp(guarded);
    const auto slot = desk.Enter("lobby");
    desk.control.SendChat(slot, "ban eve", "manual");
    desk.Wait(5);
    return desk.Seconds("bans");
}

std::string RollsDice(GuardedDesk& desk) {
    const auto slot = desk.Enter("lobby");
    desk.Set(desk.boxes.chkBanGhosters, true);
    desk.Type(desk.window.people.txtAddImm, "mary");
    for (const auto& [name, line] : {std::pair{"OnlineHost", "eve rolled 2 6-sided dice: 3 4"},
                                     std::pair{"Mary", "hello"}, std::pair{"bob", "hello"}})
        desk.Hear(slot, name, line);
    desk.Wait(10);
    std::string banned;
    for (const auto& line : desk.Happened("bans")) banned += line.substr(line.find("bans ") + 5) + " ";
    return banned;
}

std::string HearsBrackets(GuardedDesk& desk) {
    desk.people.Enter("lobby", "eve");
    const auto slot = desk.Enter("lobby");
    desk.Hear(slot, "[ManualCommand]", "ban eve");
    desk.Wait(10);
    return std::to_string(desk.Happened("bans eve").size());
}

std::string AnswersManyAndNothing(GuardedDesk& desk) {
    desk.Enter("lobby");
    desk.Answer("");
    for (int number = 1; number <= 22; ++number) desk.Answer("answer " + std::to_string(number));
    desk.Wait(100);
    return desk.Said();
}

std::string TypesAndStartsAnew(GuardedDesk& desk) {
    auto& editor = desk.window.ccomsWindow;
    desk.window.menus.mnuCcoms.Click();
    editor.txtCcom[9].SetText("banish");
    desk.machine.dialogs.AnswerYes(); // the settings may go
    desk.machine.dialogs.AnswerNo();
    desk.window.other.cmdNewSettings.Press();
    auto asked = std::to_string(desk.Boxes().size()) + (editor.Loaded() ? " open" : " closed");
    editor.cmdSetCcoms.Press();
    editor.MayDrop();
    return asked + std::to_string(desk.Boxes().size());
}

std::string ShowsPanels(GuardedDesk& desk) {
    auto& window = desk.window;
    const auto slot = desk.Enter("lobby");
    window.chats.lstChats.Select(0);
    desk.MakeOp("opal");
    desk.MakeOp("pearl");
    window.Engine().Lists().AddLockBan("eve", 0);
    desk.Wait(1);
    auto shown = window.counters.lblStat[0].Caption() + window.counters.lblStat[6].Caption();
    desk.boxes.lstOps.Select(0);
    desk.control.LeaveChat(slot);
    desk.machine.dialogs.AnswerYes();
    window.other.cmdNewSettings.Press();
    desk.Wait(1);
    shown += " " + window.counters.lblStat[0].Caption() + window.people.lblCurrentOp.Caption() +
             std::to_string(window.people.chkPerm[0].Value());
    return shown + " " + window.chats.FrameMisc[3].Caption() + window.chats.lblChatData[1].Caption();
}

struct GuardScenario {
    Departure guard;
    Scenario scenario;
    const char* off;
    const char* on;
};

TEST(Guards, HaveTheDeskGoAnotherWay) {
    const std::vector<GuardScenario> scenarios{
        {Departure::StopsAreStops, SignsOffMeanwhile, "16 ", ""},
        {Departure::MainSignOffs, IsSignedOff, "Online!", "Offline told"},
        {Departure::SilenceIsAskedAbout, IsNotAnswered, "lobby/4 ", "131 lobby/4 "},
        {Departure::RoomsAreAskedForAgain, MayNotEnter, "0 in at ", "0 8 24 56 120 in at 248 lobby/4  told"},
        {Departure::RoomsAreAskedForAgain, LosesAllRooms, "deck/4 ", "deck/4 lobby/4 lobby/5 "},
        {Departure::OwnLinesAreNotHeard, SpeaksToItself, "0 ", ""},
        {Departure::DiceAreNotGhosts, RollsDice, "eve mary bob ", "bob "},
        {Departure::NamesAreNoCommands, HearsBrackets, "1", "0"},
        {Departure::NothingSaidIsLost, AnswersManyAndNothing, "0 ; ",
         "0 answer 1; 11 answer 2; 22 answer 3; 33 answer 4; 44 answer 5; 55 answer 6; "},
        {Departure::NothingTypedIsLost, TypesAndStartsAnew, "1 closed0", "2 open0"},
        {Departure::ShownIsSo, ShowsPanels, "10 1opal1 Chat Data: lobby4", "21 00 Chat Data[None]"},
    };
    for (const auto& [guard, scenario, off, on] : scenarios) {
        SCOPED_TRACE(TextOf(guard).name);
        GuardedDesk without(guard, false), with(guard, true);
        EXPECT_EQ(scenario(without), off);
        EXPECT_EQ(scenario(with), on);
        EXPECT_GT(with.Count(guard).acted, 0);
        EXPECT_EQ(with.Count(guard).wouldHave, 0);
        EXPECT_EQ(without.Count(guard).acted, 0);
        EXPECT_EQ(without.Count(guard).wouldHave > 0, RowOf(guard).counted);
    }
}

/// Its answer is lost, as when the control turns to another one.
TEST(Guards, ForgetNoRoomOverAnother) {
    GuardedDesk desk(Departure::RoomsAreAskedForAgain, true);
    desk.SignOn();
    auto& again = desk.bridge.guards.roomsAgain;
    again.RoomWanted("deck", 4);
    again.RoomAsked("deck", 4);
    again.RoomAsked("quay", 4);
    desk.Wait(120);
    EXPECT_EQ(desk.Rooms(), "deck/4 ");
}

TEST_F(DeskScene, ARoomWhosePacketsAreDroppedWithoutAWordIsKnownToBeLost) {
    SignOn();
    Join("lobby");
    people.EachSocket(guarded, [this](const Socket& socket) { world.network.HalfOpen(socket); });
    Wait(75); // a question each 15 s, and 60 s without a sign of it
    EXPECT_EQ(control.Chat.Count(), 0U);
}

TEST_F(DeskScene, TheWindowOfGuardsSwitchesThemAndKeepsThat) {
    using Tick = TableBox::Tick;
    Bridge bridge(window);
    bridge.Start();
    auto& page = bridge.guardsWindow;
    const auto lineOf = [&](const std::string& title) {
        int line = 0;
        while (line < page.tblGuards.Count() &&
               page.tblGuards.At(line).cells[0].find(title) == std::string::npos)
            ++line;
        return line;
    };
    const auto row = [&](const std::string& title) {
        const auto& line = page.tblGuards.At(lineOf(title));
        return (line.tick == Tick::On ? "+" : "-") + line.cells[1] + ", " + line.cells[2];
    };
    control.Switches().SetWays(WaysOf(Departure::MainSignOffs, Departure::Tls));
    control.Guarded(Departure::KicksEndAsKicks);
    bridge.bar.mnuGuards.Click();
    EXPECT_EQ(page.tblGuards.Count(), static_cast<int>(DepartureCount + GuardGroupCount));
    EXPECT_EQ(row("Signed off"), "+by network, has not acted");
    EXPECT_EQ(row("ends as a kick"), "-off, would have acted once");
    EXPECT_EQ(row("over TLS"), "+by network, ");
    page.tblGuards.SetTick(lineOf("Signed off"), false);
    EXPECT_EQ(row("Signed off"), "-off, would not have acted");
    page.cmdRecommended.Press();
    EXPECT_EQ(row("Silence"), "+on, not counted");
    EXPECT_EQ(row("for a room at a time"), "+by a guard, ");
    page.tblGuards.Choose(lineOf("Silence"));
    EXPECT_NE(page.txtGuard.Text().find("Laid down: A service that is there"), std::string::npos);
    page.cmdAsNetwork.Press();
    EXPECT_EQ(row("Silence"), "-off, not counted");
    EXPECT_TRUE(control.Departs(Departure::RunawayFuse));
    Bridge anew(window);
    anew.Start();
    EXPECT_TRUE(control.Departs(Departure::RunawayFuse));
    EXPECT_FALSE(control.Departs(Departure::SilenceIsAskedAbout));
    EXPECT_EQ(anew.file.Guards(), bridge.file.Guards());
}

} // namespace
} // namespace halyard
