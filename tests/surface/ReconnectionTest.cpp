// Lost connections and lost rooms: when the bot tries to come back, what it tells, and how it is stopped.

#include "tests/surface/DeskScene.h"

namespace halyard {

class Comeback : public DeskScene {
  protected:
    void Allow(bool login, bool kicked, bool error) {
        Set(boxes.chkAutoLogin, login);
        Set(boxes.chkRejoinKick, kicked);
        Set(boxes.chkRejoinError, error);
    }
    std::string Alert() const { return window.reconnection.Alert.txtNotices.Text(); }
    bool AlertOpen() const { return window.reconnection.Alert.Loaded(); }
};

TEST_F(Comeback, TheAlertTellsTheWayBack) {
    Allow(true, false, true);
    SignOn();
    for (const auto* room : {"lobby", "deck"}) Join(room);
    world.network.RefuseConnects(1);
    people.Drop("harbourbot");
    Wait(40);
    EXPECT_EQ(Alert(), "Connection to the main BOS server has been lost!\r\nAttempting re-connection...\r\n"
                       "Failed to re-connect!\r\nAttempting again...\r\nRe-connedction successful!\r\n"
                       "Attempting to rejoin chat 'lobby'\r\nSuccessfully rejoined chat 'lobby'!\r\n"
                       "Attempting to rejoin chat 'deck'\r\nSuccessfully rejoined chat 'deck'!");
}

TEST(Loss, ARoomEnteredBetweenALossAndTheFirstAttemptComesBackToo) {
    int entered = 0;
    for (int milliseconds = 1; milliseconds <= 40; ++milliseconds) {
        Desk desk;
        desk.Set(desk.boxes.chkAutoLogin, true);
        desk.Set(desk.boxes.chkRejoinError, true);
        desk.SignOn();
        desk.Start();
        desk.boxes.txtChat.SetText("quay");
        desk.window.chats.cmdJoinChat.Press();
        desk.world.RunFor(milliseconds);
        desk.people.Drop("harbourbot");
        desk.Wait(40);
        const bool was = !desk.Happened("enters in quay").empty();
        EXPECT_EQ(desk.network.IsInRoom("quay", "harbourbot"), was) << milliseconds;
        entered += was ? 1 : 0;
    }
    EXPECT_GT(entered, 1);
}

TEST_F(Comeback, TheAlertGoesWhenNoRoomIsLeftToGoBackTo) {
    Allow(true, false, true);
    SignOn();
    people.Drop("harbourbot");
    Wait(1);
    EXPECT_TRUE(AlertOpen());
    EXPECT_TRUE(window.reconnection.Rejoining);
    Wait(5);
    EXPECT_FALSE(AlertOpen());
    EXPECT_FALSE(window.reconnection.tmrReconnect->Enabled());
}

TEST_F(Comeback, RoomsAreForgottenAfterASignOff) {
    Allow(true, true, true);
    SignOn();
    Join("lobby");
    world.network.faults.refuse = 1;
    people.DropFromRoom("lobby", "harbourbot");
    Wait(1);
    people.Drop("harbourbot");
    Wait(20);
    EXPECT_EQ(window.reconnection.RejoinQueue.Count(), 1U);
    Set(boxes.chkAutoLogin, false);
    window.connection.cmdSignOff.Press();
    Wait(30);
    EXPECT_EQ(window.reconnection.RejoinQueue.Count(), 0U);
    world.network.faults.refuse = 0;
    SignOn();
    Wait(20);
    EXPECT_FALSE(network.IsInRoom("lobby", "harbourbot"));
}

TEST_F(Comeback, ASignOnThatFailsCanBeTriedAgainAtOnce) {
    people.RefuseNextSignOn(24);
    window.connection.cmdSignOn.Press();
    EXPECT_FALSE(window.connection.cmdSignOn.Enabled());
    Wait(1);
    EXPECT_EQ(LastAction(), "Login Error: Rate limit exceeded. Please try again later");
    EXPECT_TRUE(window.connection.cmdSignOn.Enabled());
    EXPECT_FALSE(window.connection.cmdSignOff.Enabled());
    world.network.SilentConnects(1);
    window.connection.cmdSignOn.Press();
    Wait(50); // one notice, not one every fifteen seconds
    EXPECT_EQ(LastAction(), "Login Error: Attempt to connect has timed out.");
    EXPECT_EQ(window.counters.lstActions.ListCount(), 2);
    SignOn();
}

TEST_F(Comeback, ALostRoomIsRejoinedAtOnceWhenAllowed) {
    SignOn();
    using Case = std::tuple<const char*, bool, bool, bool, int>;
    for (const auto& [name, kicked, error, byHand, entered] :
         {Case{"nothing allowed", false, false, false, 0}, Case{"left by hand", true, true, true, 0},
          Case{"kicks", true, false, false, 1}, Case{"errors", false, true, false, 1}}) {
        SCOPED_TRACE(name);
        Allow(true, kicked, error);
        Join("lobby");
        Start();
        if (byHand)
            window.chats.cmdLeaveChat.Press();
        else
            people.SignOffFromRoom("lobby", "harbourbot");
        Wait(30);
        EXPECT_EQ(Happened("enters"), Lines(static_cast<std::size_t>(entered), "0 Harbour Bot enters"));
        EXPECT_EQ(AlertOpen(), entered == 1);
        EXPECT_EQ(window.reconnection.RejoinQueue.Count(), 0U);
        EXPECT_EQ(window.chats.lstChats.ListCount(), entered);
        window.chats.cmdLeaveChat.Press();
        window.reconnection.StopReconnections();
        Wait(2);
    }
}

TEST_F(Comeback, ARoomEnteredTwiceStaysListedOnceWhenOneConnectionEnds) {
    Allow(true, true, true);
    SignOn();
    Join("Lobby");
    const auto twin = std::make_shared<Chats>(control, 1.0F);
    twin->ChatName = "lobby";
    twin->Exchange = 4;
    twin->ChatIndex = 30;
    twin->Cookie = "4-0-lobby";
    control.Chat.Add(twin);
    window.reconnection.JoinedChat("lobby", 4, 0, 30);
    EXPECT_EQ(Listed(window.chats.lstChats), (Lines{"Lobby", "lobby"}));
    people.SignOffFromRoom("lobby", "harbourbot");
    Wait(1);
    EXPECT_EQ(Listed(window.chats.lstChats), Lines{"lobby"});
    EXPECT_EQ(window.chats.lblChatCount.Caption(), "Chats you are in: 1");
    EXPECT_EQ(window.reconnection.RejoinQueue.Count(), 0U);
    // A connection whose room never came has no line to take along.
    window.reconnection.LeftChat("lobby", 4, 0, 29, "error");
    EXPECT_EQ(Listed(window.chats.lstChats), Lines{"lobby"});
}

TEST_F(Comeback, TheQueueKnowsARoomHoweverItIsSpelled) {
    Allow(true, true, true);
    SignOn();
    auto& queue = window.reconnection.RejoinQueue;
    for (const auto* entry : {"the lobby:4:0", "deck:4:0", "thelobby:4:1"}) queue.Add(entry);
    window.reconnection.LeftChat("The Lobby", 4, 0, 9, "error");
    EXPECT_EQ(queue.Count(), 3U);
    EXPECT_FALSE(AlertOpen());
    window.reconnection.LeftChat("The Hold", 4, 0, 9, "error");
    EXPECT_EQ(queue.Item(4), "thehold:4:0");
    const auto told = Alert();
    window.reconnection.JoinedChat("The Lobby", 4, 0, 9);
    EXPECT_EQ(queue.Count(), 2U);
    EXPECT_EQ(Alert().substr(told.size()), "\r\nSuccessfully rejoined chat 'The Lobby'!"
                                           "\r\nSuccessfully rejoined chat 'The Lobby'!");
}

TEST_F(Comeback, JoinFailuresByCode) {
    auto& retry = *window.reconnection.tmrChatRejoin;
    auto& queue = window.reconnection.RejoinQueue;
    using Case = std::tuple<std::int16_t, bool, bool, const char*, bool, int>;
    for (const auto& [code, kicked, error, action, triesAnother, interval] :
         {Case{24, false, true, "Room Full", true, 8000}, Case{24, true, false, "Room Full", false, 8000},
          Case{46, true, true, "Already in chat", false, 8000}, Case{48, false, true, "Rated", true, 60000},
          Case{50, true, true, "Objectional Chat Name", false, 8000},
          Case{74, true, false, "Ejected", true, 8000}, Case{74, false, true, "Ejected", false, 8000}}) {
        SCOPED_TRACE(std::to_string(code) + (kicked ? " kicked" : ""));
        Allow(false, kicked, error);
        window.reconnection.StopReconnections();
        retry.SetInterval(8000);
        queue.Add("lobby:4:0");
        queue.Add("deck:4:0");
        window.reconnection.Error("told so", code, "000D");
        EXPECT_EQ(LastAction(), std::string("Join chat failed: ") + action);
        EXPECT_EQ(queue.Item(1), triesAnother ? "deck:4:0" : "lobby:4:0");
        EXPECT_EQ(retry.Enabled(), triesAnother);
        EXPECT_EQ(window.reconnection.Rejoining, triesAnother);
        EXPECT_EQ(retry.Interval(), interval);
        EXPECT_EQ(window.chats.lblChatStatus.Caption(), "told so");
    }
    window.reconnection.Error("no room", 1, "000E");
    EXPECT_EQ(LastAction(), "Chat service error: no room");
    window.reconnection.ConnectionLost(NoSock, "no socket is free");
    EXPECT_EQ(LastAction(), "no socket is free");
    window.reconnection.Error("rates", 1, "0005");
    EXPECT_EQ(window.chats.lblChatStatus.Caption(), "rates");
}

} // namespace halyard
