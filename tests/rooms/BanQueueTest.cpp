#include "tests/rooms/RoomScenario.h"

namespace halyard {

class BanQueue : public RoomScenario {
  protected:
    Chats& Open(float pause) {
        auto& room = OpenRoom("Lobby", 3, pause);
        room.QueueBan("bob", 3, 8, BanKind::Ban, "");
        room.QueueBan("cid", 3, 9, BanKind::Autoban, "c*");
        room.tmrBan->SetEnabled(true); // a first ban has gone out at once
        return room;
    }
};

TEST_F(BanQueue, BansGoOutAPauseApart) {
    using Case = std::tuple<float, int, std::string, std::string>;
    for (const auto& [pause, interval, first, second] :
         {Case{.0001F, 1, "0.001", "0.002"}, Case{.0025F, 2, "0.002", "0.004"}, Case{2.F, 2000, "2", "4"},
          Case{59.5F, 59500, "59.5", "119"}, Case{60.F, 1000, "61", "122"}, Case{90.F, 1000, "91", "182"},
          Case{999.F, 1000, "1000", "2000"}}) {
        auto& room = Open(pause);
        EXPECT_EQ(room.tmrBan->Interval(), interval);
        host.transcript.clear();
        host.zero = world.Now();
        RunTo(Second() + 3100);
        EXPECT_EQ(Transcript(), (Lines{first + " store 8 ban:3:8:bob:", first + " ban 3 8 bob",
                                       second + " store 9 ab:3:9:cid:c*", second + " ban 3 9 cid"}));
        EXPECT_FALSE(room.tmrBan->Enabled());
        CloseRoom(1);
    }
}

TEST_F(BanQueue, ANewPauseHoldsFromNow) {
    auto& room = Open(10);
    RunTo(4);
    room.SetBanPause(2);
    Heard(6, "6 store 8 ban:3:8:bob:; 6 ban 3 8 bob");
}

} // namespace halyard
