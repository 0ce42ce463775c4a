// What rings at the whole bot's desk: one fault a kind, its ring and its end; and that the operator's own
// doing rings nothing.

#include "surface/bridge/Bridge.h"
#include "tests/surface/DeskScene.h"

#include <utility>

namespace halyard {
namespace {

class Alarms : public DeskScene {
  protected:
    Alarms() {
        bridge.Start();
        Set(boxes.chkAutoLogin, true);
        Set(boxes.chkRejoinError, true);
        MakeOp("roomboss");
    }
    void GoOn() {
        SignOn();
        Join("lobby");
        people.Enter("lobby", "roomboss");
    }
    void Minutes(double minutes) { Wait(60 * minutes); }
    void ByHand(Button& button) {
        window.ByHand(button, [&] { button.Press(); });
    }
    /// What was told beside the tray since the last asking.
    Lines Rang() { return std::exchange(machine.desktop.notes, {}); }

    Bridge bridge{window};
};

TEST_F(Alarms, OfTheAccount) {
    people.RefuseNextSignOn(5);
    ByHand(window.connection.cmdSignOn);
    Wait(15);
    EXPECT_EQ(Rang(), Lines{"Halyard: Needs you. The password is not this name's. Type the password again. "
                            "It counts upper and lower case."});
    people.RefuseNextSignOn(24);
    ByHand(window.connection.cmdSignOn);
    Minutes(10);
    EXPECT_EQ(Rang(), Lines{}) << "it says already that nobody is on line";
    GoOn();
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: needs you. Harbour Bot is on line."});

    world.network.faults.refuse = 1;
    people.Drop("harbourbot");
    Minutes(4);
    EXPECT_EQ(Rang(), Lines{});
    Minutes(2);
    EXPECT_EQ(Rang(), Lines{"Halyard: Off line. For 5 minutes. The service did not let the bot in within 15 "
                            "seconds. Check host and port, and that the service is running; then sign on "
                            "again."});
    world.network.faults.refuse = 0;
    Minutes(5);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: off line. Harbour Bot is on line."});
    Set(boxes.chkAutoLogin, false);
    people.Drop("harbourbot");
    Minutes(10);
    EXPECT_EQ(Rang(), Lines{"Halyard: Given up. Nothing tries to come back on line. The connection to the "
                            "service is lost."});
    GoOn();
}

TEST_F(Alarms, OfARoom) {
    GoOn();
    Set(boxes.chkRejoinError, false);
    people.SignOffFromRoom("lobby", "harbourbot");
    Minutes(2.5);
    EXPECT_EQ(Rang(), Lines{});
    Minutes(1);
    EXPECT_EQ(Rang(), Lines{"Halyard: Room lost: lobby. The connection to it is lost."});
    Join("lobby");
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: room lost: lobby. The bot is in it again."});
    people.RefuseNextCreation(0x0032); // an op's order, and what becomes of it
    people.Say("lobby", "roomboss", "rejoin");
    Minutes(40);
    EXPECT_EQ(Rang(), Lines{"Halyard: Room lost: lobby. It is refused. The service finds the room's name "
                            "improper. Ask for another room name or exchange."});
    Join("lobby");
    Rang();
    for (const char* guest : {"ann", "ben", "cem"}) people.Enter("lobby", guest);
    Minutes(181);
    EXPECT_EQ(Rang(), Lines{"Halyard: Silent: lobby. Nobody has said a line for 180 minutes, and 5 are "
                            "there."});
    people.Say("lobby", "ann", "good morning");
    Minutes(1);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: silent: lobby. A line was heard."});
}

TEST_F(Alarms, OfWhatHappensTooOften) {
    GoOn();
    for (int time = 0; time < 6; ++time) {
        people.SetRate("lobby", "harbourbot", 1, RateCode::Limit);
        Wait(2);
        people.SetRate("lobby", "harbourbot", 1, RateCode::Clear);
        Wait(2);
    }
    EXPECT_EQ(Rang(), Lines{"Halyard: Rated: lobby. 6 in 60 minutes. The last limit was of class 1."});
    Minutes(62);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: rated: lobby. None for 60 minutes."});

    people.SetOwner("lobby", "ann");
    for (const char* name : {"ben", "cem", "dan"}) {
        people.Enter("lobby", name);
        people.Say("lobby", "roomboss", std::string("ban ") + name);
        Wait(20);
    }
    EXPECT_EQ(Rang(), Lines{"Halyard: Bans refused: lobby. 3 in 60 minutes. The bot doesn't own the room."});
    Minutes(62);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: bans refused: lobby. None for 60 minutes."});

    for (int line = 0; line < 50; ++line) { // the bot frees itself after half a minute
        if (line % 25 == 0) people.SetRate("lobby", "harbourbot", 5, RateCode::Limit);
        people.Say("lobby", "roomboss", "op roomboss");
        Wait(1);
        if (line % 25 == 24) people.SetRate("lobby", "harbourbot", 5, RateCode::Clear);
    }
    const auto dropped = Rang();
    ASSERT_EQ(dropped.size(), 1U);
    EXPECT_EQ(dropped.front(), "Halyard: Lines dropped: lobby. 31 in 60 minutes. Of the last: the room's "
                               "lines are limited.");
    people.SetRate("lobby", "harbourbot", 5, RateCode::Clear);
    Minutes(62);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: lines dropped: lobby. None for 60 minutes."});
}

TEST_F(Alarms, OfARaidAndOfAFile) {
    GoOn();
    Set(boxes.chkAWOn, true);
    window.Engine().Lists().AddAW("spam", 0);
    Wait(5);
    Rang();
    for (int guest = 1; guest <= 20; ++guest) {
        const auto name = "raider" + std::to_string(guest);
        people.Enter("lobby", name);
        people.Say("lobby", name, "spam");
        Wait(3);
    }
    auto rang = Rang();
    ASSERT_EQ(rang.size(), 1U);
    EXPECT_TRUE(rang.front().starts_with("Halyard: Raid: lobby. ")) << rang.front();
    EXPECT_TRUE(rang.front().ends_with("protection stays on.")) << rang.front();
    Minutes(6);
    EXPECT_EQ(Rang(), Lines{"Halyard: Over: raid: lobby. No newcomer was acted on for 5 minutes."});

    machine.disk.FailNth(4);
    Wait(32);
    rang = Rang();
    ASSERT_EQ(rang.size(), 1U);
    EXPECT_TRUE(rang.front().starts_with("Halyard: Not written: ")) << rang.front();
    Wait(32);
    rang = Rang();
    ASSERT_EQ(rang.size(), 1U);
    EXPECT_TRUE(rang.front().ends_with(" It is written again.")) << rang.front();
}

TEST_F(Alarms, OfTheOperatorsOwnDoingThereAreNone) {
    GoOn();
    Join("attic");
    window.ByHand(window.chats.lstChats, [this] { control.LeaveChat(0, "attic"); });
    Set(boxes.chkRejoinError, false);
    Join("cellar");
    window.ByHand(window.chats.cmdCloseChat, [this] {
        for (const auto& room : control.Chat)
            if (room->ChatName == "cellar") control.CloseChat(room->ChatIndex);
    });
    Minutes(5);
    EXPECT_EQ(control.Chat.Count(), 1U);
    people.SignOffFromRoom("lobby", "harbourbot");
    Minutes(4);
    EXPECT_EQ(Rang().size(), 1U);
    EXPECT_EQ(bridge.alarms.book.Ringing().size(), 1U);
    ByHand(window.connection.cmdSignOff);
    Minutes(10);
    EXPECT_EQ(Rang(), Lines{});
    EXPECT_TRUE(bridge.alarms.book.Ringing().empty());
}

TEST_F(Alarms, RingByCommandAndByMessage) {
    Lines ims;
    const auto passOn = network.onEvent;
    network.onEvent = [&](const PracticeEvent& event) {
        passOn(event);
        if (event.room.empty() && event.what.starts_with("sends ")) ims.push_back(event.what);
    };
    AlarmTerms terms;
    terms.tray = false;
    terms.command = {"/bin/ring", "it\x80"};
    terms.messages = {"roomboss"};
    terms.daily = true;
    bridge.alarms.Take(terms);
    GoOn();
    auto& book = bridge.alarms.book;
    machine.programs.take = 20'000;
    const std::string odd = "a\nb\\\x80" + std::string(2000, 'x');
    book.Raise(AlarmKind::Fuse, odd, "It is paused.");
    book.Raise(AlarmKind::TimeBans, "", "No file.");
    Wait(5);
    ASSERT_EQ(machine.programs.started.size(), 1U) << "never two at once";
    const auto& line = machine.programs.started.front();
    EXPECT_EQ(line.arguments, (Lines{"/bin/ring", "it\xE2\x82\xAC"}));
    ASSERT_EQ(line.environment.size(), 5U);
    EXPECT_EQ(line.environment[0], (std::pair<std::string, std::string>("HALYARD_ALARM", "fuse")));
    EXPECT_EQ(line.environment[1].second, "first");
    EXPECT_EQ(line.environment[2].second.size(), AlarmBook::LongestWords + 8)
        << "\"...\", an escape, the euro";
    EXPECT_EQ(EnvironmentField(odd).size(), CommandRinger::LongestField);
    EXPECT_EQ(EnvironmentField("a\r\x1B[1m\x7F\x81\\"), "a\\x0D\\x1B[1m\\x7F\\x81\\x5C");
    Wait(10);
    EXPECT_EQ(machine.programs.started.size(), 2U);
    EXPECT_EQ(bridge.foot.lblFoot.Caption(), "The alarms' command: it took too long.");
    EXPECT_EQ(Rang(), Lines{}) << "the tray is off";
    Minutes(1);
    ASSERT_EQ(ims.size(), 1U);
    EXPECT_NE(ims.front().find("(and 1 more)"), std::string::npos) << ims.front();
    book.End(AlarmKind::TimeBans, "", "There is one.");
    Minutes(5);
    EXPECT_EQ(ims.size(), 1U);
    Minutes(6);
    EXPECT_EQ(ims.size(), 2U);
    Minutes(60 * 24);
    ASSERT_EQ(ims.size(), 3U);
    EXPECT_NE(ims.back().find("Once a day: on line, in 1 rooms. Alarms of the last day: "), std::string::npos)
        << ims.back();
}

} // namespace
} // namespace halyard
