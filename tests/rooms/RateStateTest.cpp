#include "tests/rooms/RoomScenario.h"

namespace halyard {

class RateState : public RoomScenario {
  protected:
    RateState() {
        room.SetAutoUnrate(true);
        room.SetUnratePause(1);
    }
    Chats& room = OpenRoom("The Lobby", 3);
};

TEST_F(RateState, BanningComesBackAfterTheLimit) {
    room.QueueBan("bob", 3, 7, BanKind::Ban, "");
    room.tmrBan->SetEnabled(true);
    room.RateNotice(2, 1);
    room.RateNotice(3, 1); // one notice only
    room.QueueBan("cid", 3, 8, BanKind::Ban, "");
    room.BanNextUser();
    EXPECT_EQ(room.BanQueue.Count(), 1U) << "waits, bob is gone";
    EXPECT_TRUE(room.IsRated(1));
    EXPECT_FALSE(room.tmrBan->Enabled());
    Heard(300, "0 rated 0 The Lobby; 0 rate drops ban:3:7:bob:; 0 « Rated! --- Rate Class ID: 1, Features "
               "disabled: Banning, Unbanning, "
               "Chat Closing -- Time disabled: 1 minutes »; 60 « 1 minutes has passed, features re-enabled: "
               "Banning, Unbanning, Chat Closing »; 60 unrated 0 thelobby 3");
    EXPECT_FALSE(room.IsRated(1));
    EXPECT_FALSE(room.tmrUnrate->Enabled());
}

TEST_F(RateState, NoticesOfBanning) {
    const std::string head =
        "0 « Rated! --- Rate Class ID: 1, Features disabled: Banning, Unbanning, Chat Closing "
        "-- Time disabled: ";
    using Case = std::tuple<int, bool, const char*>;
    room.SetUnratePause(30);
    for (auto [code, automatic, tail] :
         {Case{2, true, "30 minutes »"}, Case{2, false, "[Auto Unrate Off] »"},
          Case{3, true, "%t30 minutes »"}, Case{3, false, "%t[Auto Unrate Off] »"}}) {
        room.SetAutoUnrate(automatic);
        room.RateNotice(code, 1);
        EXPECT_EQ(Transcript().back(), head + tail);
        EXPECT_EQ(room.tmrUnrate->Enabled(), automatic);
        room.tmrUnrate->SetEnabled(false);
        room.RateNotice(code + 2, 1);
        EXPECT_FALSE(room.IsRated(1));
    }
}

TEST_F(RateState, WhileTalkingIsStoppedEverySendIsLost) {
    room.SetAutoUnrate(false);
    Send(room, "oped", "Op: %p", "ann");
    Send(room, "oped", "Op: %p", "lost with the queue");
    RunTo(2);
    room.RateNotice(3, 5);
    Send(room, "oped", "Op: %p", "never queued");
    Send(room, "msgrated", "%d", "1", "not even this");
    EXPECT_EQ(room.MsgQueue.Count(), 0U);
    RunTo(40);
    Send(room, "oped", "Op: %p", "bob");
    Heard(Second(), "0 Op: ann; 2 rated 1 The Lobby; 2 « Rated! --- Rate Class ID: 5, Features disabled: "
                    "Chat Messages -- Time disabled: 30 seconds »; 32 unrated 1 thelobby 3; 40 Op: bob");
    EXPECT_FALSE(room.tmrUnrate->Enabled());
}

// The tick is shared: talking comes back early when it already runs, and goes on ticking for banning.
TEST_F(RateState, BothClassesShareTheTickAndAClearedOneCountsAnew) {
    room.RateNotice(2, 1);
    RunTo(20);
    room.RateNotice(2, 5);
    RunTo(40);
    EXPECT_FALSE(room.IsRated(5));
    for (int code : {4, 2}) room.RateNotice(code, 1);
    RunTo(300);
    EXPECT_EQ(Transcript().back(), "90 unrated 0 thelobby 3");
}

TEST_F(RateState, OtherClassesAndCodes) {
    room.RateNotice(2, 3);
    room.RateNotice(3, 3);
    Heard(Second(), "0 « Rated! ---  »");
    EXPECT_TRUE(room.IsRated(3));
    EXPECT_FALSE(room.tmrUnrate->Enabled());
    for (int code : {-1, 0, 1, 2, 3, 4, 5, 6})
        for (int classID : {-1, 0, 6, 255}) room.RateNotice(code, classID);
    room.RateNotice(1, 1);
    room.RateNotice(6, 3);
    EXPECT_EQ(Transcript().size(), 1U);
    EXPECT_TRUE(room.IsRated(3));
    EXPECT_FALSE(room.IsRated(0) || room.IsRated(6) || room.IsRated(1));
    room.UserJoined("bob"), room.MsgQueue.Add({}), room.BanQueue.Add("cid");
    room.PrepareTerminate(); // no timers any more
    EXPECT_EQ(room.PeopleHere.Count() + room.MsgQueue.Count() + room.BanQueue.Count(), 0U);
    for (int classID : {1, 5}) room.RateNotice(2, classID);
    room.CheckUnrate();
}

} // namespace halyard
