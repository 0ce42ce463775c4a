#include "RoomScenario.h"

namespace halyard {

namespace {

class BanQueue : public RoomScenario {
  protected:
    Chats& Open(float pause) {
        auto& room = OpenRoom("Lobby", 3, pause);
        room.QueueBan("bob", 3, 8, "ban", "");
        room.QueueBan("cid", 3, 9, "ab", "c*");
        room.tmrBan->SetEnabled(true); // a first ban has gone out at once
        return room;
    }
};

TEST_F(BanQueue, BansGoOutAPauseApart) {
    auto& room = Open(2);
    Heard(5.999, "2 store 8 ban:3:8:bob:; 2 ban 3 8 bob; 4 store 9 ab:3:9:cid:c*; 4 ban 3 9 cid");
    EXPECT_TRUE(room.tmrBan->Enabled());
    RunTo(6);
    EXPECT_FALSE(room.tmrBan->Enabled());
}

TEST_F(BanQueue, PausesInTheirTurn) {
    using Case = std::tuple<float, int, const char*, const char*>;
    for (auto [pause, interval, first, second] :
         {Case{.0001F, 1, "0.001", "0.002"}, Case{.0025F, 2, "0.002", "0.004"},
          Case{59.5F, 59500, "59.5", "119"}, Case{60.F, 1000, "61", "122"}, Case{90.F, 1000, "91", "182"},
          Case{999.F, 1000, "1000", "2000"}}) {
        auto& room = Open(pause);
        EXPECT_EQ(room.tmrBan->Interval(), interval);
        host.transcript.clear();
        host.zero = world.Now();
        RunTo(Second() + 3100);
        EXPECT_EQ(Transcript()[1], std::string(first) + " ban 3 8 bob");
        EXPECT_EQ(Transcript()[3], std::string(second) + " ban 3 9 cid");
        EXPECT_FALSE(room.tmrBan->Enabled());
        CloseRoom(1);
    }
}

TEST_F(BanQueue, ANewPauseHoldsFromNow) {
    auto& room = Open(10);
    RunTo(4);
    room.SetBanPause(2);
    RunTo(6);
    EXPECT_EQ(Transcript().back(), "6 ban 3 8 bob");
    room.SetBanPause(90);
    EXPECT_EQ(room.tmrBan->Interval(), 1000);
}

TEST_F(BanQueue, NothingGoesOutWhileRated) {
    auto& room = Open(2);
    room.RateNotice(2, 1);
    host.transcript.clear();
    room.QueueBan("bob", 3, 8, "ban", "");
    room.BanNextUser();
    RunTo(10);
    EXPECT_TRUE(Transcript().empty());
    EXPECT_EQ(room.BanQueue.Count(), 1U);
}

} // namespace

} // namespace halyard
