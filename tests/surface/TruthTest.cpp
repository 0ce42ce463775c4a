// What the watch says of the bot at its desk, also where the window says something else.

#include "bridge/watch/Drops.h"
#include "surface/bridge/Bridge.h"
#include "tests/surface/DeskScene.h"

namespace halyard {
namespace {

class TruthScene : public DeskScene {
  protected:
    TruthScene() { bridge.Start(); }

    Bridge bridge{window};
    const Truth& truth = bridge.watch.truth;

    std::string Account() const { return Words(truth.Account()); }
    static std::string Words(const StageTruth& standing) {
        static constexpr const char* stages[] = {"off", "under way", "on", "coming back", "lost", "refused"};
        return std::string(stages[static_cast<int>(standing.stage)]) + ": " + standing.words;
    }
    const RoomTruth& InRoom() const { return truth.Rooms().begin()->second; }
};

TEST_F(TruthScene, SaysWhatTheWindowDoesNot) {
    EXPECT_EQ(Account(), "off: ");
    SignOn();
    EXPECT_EQ(Account(), "on: Online");
    EXPECT_EQ(truth.AccountName(), "Harbour Bot");
    Join("lobby");
    people.SignOff("harbourbot");
    Wait(1);
    EXPECT_EQ(window.connection.lblConnectionInfo.Caption(), "Online!");
    EXPECT_EQ(Account(), "lost: The service has ended the main connection.");
    EXPECT_TRUE(truth.Rooms().empty());
    ASSERT_EQ(truth.Absent().size(), 1U);
    EXPECT_EQ(Words(truth.Absent()[0].standing), "lost: The session ended.");

    window.connection.cmdSignOff.Press();
    EXPECT_EQ(Account(), "off: Signed off");
    people.RefuseNextSignOn(24);
    window.connection.cmdSignOn.Press();
    Wait(1);
    EXPECT_EQ(Account(), "refused: Rate limit exceeded. Please try again later");
    world.network.SilentConnects(1);
    window.connection.cmdSignOn.Press();
    const auto begun = world.Now();
    EXPECT_EQ(Account(), "under way: Connecting to Auth server...");
    EXPECT_EQ(truth.Account().stuckAt, begun + Truth::SignOnTime);
    Wait(20);
    EXPECT_EQ(Account(), "lost: Attempt to connect has timed out.");
}

// Sign Off leaves the way back as it is: the watch says that an attempt is to come.
TEST_F(TruthScene, SaysWhenTheNextAttemptComes) {
    Set(boxes.chkAutoLogin, true);
    Set(boxes.chkRejoinError, true);
    SignOn();
    Join("lobby");
    people.Drop("harbourbot");
    world.RunUntil([this] { return truth.Account().stage != Stage::On; }, 1000);
    EXPECT_EQ(Account(), "coming back: The main connection was lost: Connection closed by the peer");
    const auto lostAt = world.Now();
    EXPECT_EQ(truth.Account().nextAttempt, lostAt + 1000);
    ASSERT_EQ(truth.Awaited().size(), 1U);
    EXPECT_EQ(truth.Awaited()[0].name, "lobby");
    world.network.RefuseConnects(1);
    Wait(2);
    const auto next = truth.Account().nextAttempt;
    EXPECT_EQ(next, lostAt + 1000 + 15000);
    window.connection.cmdSignOff.Press();
    EXPECT_EQ(truth.Account().stage, Stage::ComingBack);
    world.RunFor(next - world.Now() + 5000);
    EXPECT_EQ(Account(), "on: Online");
}

TEST_F(TruthScene, KnowsRoomsOnTheirWayInAndRefused) {
    SignOn();
    people.RefuseNextJoin(0x18);
    boxes.txtChat.SetText("lobby");
    window.chats.cmdJoinChat.Press();
    Wait(1);
    ASSERT_EQ(truth.Absent().size(), 1U);
    EXPECT_EQ(truth.Absent()[0].code, 0x18);
    EXPECT_EQ(Words(truth.Absent()[0].standing), "refused: Join chat failed, full.");
    EXPECT_EQ(Words(truth.Navigation()), "on: Connected");
    people.Enter("lobby", "opal");
    Join("lobby");
    EXPECT_TRUE(truth.Absent().empty());
    ASSERT_EQ(truth.Rooms().size(), 1U);
    EXPECT_EQ(Words(InRoom().standing), "on: In the room");
    EXPECT_EQ(InRoom().people, 2);
    for (int line = 0; line < 3; ++line) people.Say("lobby", "opal", "hello");
    Wait(1);
    EXPECT_EQ(InRoom().LinesAMinute(world.Now()), 3) << "its own are none of them";
    EXPECT_EQ(InRoom().LinesAMinute(world.Now() + 61000), 0);
    EXPECT_EQ(InRoom().standing.lastHeard, world.Now() - 999);
    EXPECT_EQ(InRoom().standing.stuckAt, -1);

    world.network.StallFor(200000);
    boxes.txtChat.SetText("deck");
    window.chats.cmdJoinChat.Press();
    Wait(10);
    EXPECT_EQ(truth.Navigation().stuckAt, world.Now() + 65000) << "it was asked, and says nothing";
    EXPECT_EQ(Words(truth.Absent()[0].standing), "under way: Asked for");
    EXPECT_TRUE(truth.Absent()[0].standing.IsStuck(world.Now() + 65000));
    Wait(60);
    EXPECT_EQ(Words(truth.Navigation()), "lost: Connection to the chat navigation server has been lost.");
}

TEST_F(TruthScene, TakesOutWhatWaitsByPersonAndByOp) {
    for (const char* name : {"opal", "ruby"}) people.Enter("lobby", name), MakeOp(name);
    for (const char* name : {"bob", "carl", "dora", "eve"}) people.Enter("lobby", name);
    SignOn();
    Join("lobby");
    for (const char* name : {"bob", "carl", "dora"}) people.Say("lobby", "opal", std::string("ban ") + name);
    people.Say("lobby", "ruby", "ban eve");
    world.RunUntil([this] { return !truth.Rooms().empty() && InRoom().bans.size() == 3; }, 900);
    ASSERT_EQ(InRoom().bans.size(), 3U);
    EXPECT_EQ(InRoom().bans[0].name, "carl");
    EXPECT_EQ(InRoom().bans[0].origin.op, "opal");
    EXPECT_EQ(InRoom().bans[2].origin.op, "ruby");
    window.ByHand(window.chats.cmdJoinChat, [this] {
        EXPECT_EQ(DropAllOfPerson(control, truth, "Car L"), 1U);
        EXPECT_EQ(DropAllOfOp(control, truth, "Opal"), 1U);
        EXPECT_EQ(DropAllOfOp(control, truth, ""), 0U);
    });
    EXPECT_EQ(truth.Dropped().back().whom, "dora");
    EXPECT_EQ(truth.Dropped().back().reason, DropReason::ByHand);
    EXPECT_EQ(truth.Dropped().back().origin.op, "opal") << "who wanted it";
    Start();
    Wait(20);
    EXPECT_EQ(Happened("bans"), (Lines{"0 Harbour Bot bans bob", "1 Harbour Bot bans eve"}));
}

// A check over the bot's session hears the frames beside the watch, which keeps them.
TEST_F(TruthScene, HearsTheFramesDuringACheckAndBehindIt) {
    SignOn();
    NetworkCheck::Terms terms;
    terms.network = BuiltInNetworks()[0];
    terms.host = "127.0.0.1";
    terms.name = "Harbour Bot";
    terms.room = "den";
    bridge.check.Start(terms);
    EXPECT_NE(control.Tell().frames, &truth);
    const auto heard = truth.Main().lastHeard;
    Wait(30);
    EXPECT_GT(truth.Main().lastHeard, heard) << "the check has asked on it";
    bridge.check.Stop();
    EXPECT_EQ(control.Tell().frames, &truth);
}

} // namespace
} // namespace halyard
