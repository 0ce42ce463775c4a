#include "tests/rooms/RoomScenario.h"

namespace halyard {

class Pool : public RoomScenario {
  protected:
    Pool() { pool.CreateTimer("tban"); }
    std::string Tags() const {
        std::string tags;
        for (int i = 0; i < pool.Count(); ++i) tags += (i ? " " : "") + pool.Slot(i)->Tag;
        return tags;
    }
};

constexpr auto eightTags = " ban msg msg1 msg2 msg3 firstjoin ping unrate";

TEST_F(Pool, SlotsFindTheirRoomAreReusedAndOnlyTheTopOneGoes) {
    OpenRoom("A", 11);
    OpenRoom("B", 12);
    EXPECT_EQ(Tags(), std::string("tban") + eightTags + eightTags);
    for (int slot = 1; slot <= 16; ++slot) {
        const auto& tag = pool.Slot(slot)->Tag;
        EXPECT_EQ(pool.GetTimer(slot, tag), tag == "firstjoin" ? 0 : 1 + (slot > 8)) << tag;
        EXPECT_EQ(pool.GetTimer(slot - 1, tag), 0) << tag;
    }
    CloseRoom(1);
    EXPECT_EQ(Tags(), std::string("tban        ") + eightTags);
    EXPECT_EQ(rooms.Item(1)->BanTimerIndex, 9);
    EXPECT_EQ(pool.GetTimer(9, "ban"), 1); // the room has moved up
    CloseRoom(1);
    EXPECT_EQ(pool.Count(), 16);
    OpenRoom("C", 13);
    EXPECT_EQ(rooms.Item(1)->BanTimerIndex, 1);
    EXPECT_EQ(rooms.Item(1)->UnrateIndex, 8);
    EXPECT_EQ(pool.Count(), 16);
}

TEST_F(Pool, ATakenSlotStartsStopped) {
    OpenRoom("A", 11);
    auto& room = OpenRoom("B", 12);
    pool.UnloadChatTimers(1);
    for (int slot = 1; slot <= 8; ++slot) pool.Slot(slot)->SetEnabled(true);
    for (int slot = 1; slot <= 6; ++slot) pool.CreateTimer("unrate");
    pool.CreateTimer("msg1"); // where a "ping" still runs
    EXPECT_EQ(room.GetTimerIndex(1), 7);
    EXPECT_FALSE(pool.Slot(7)->Enabled());
    EXPECT_EQ(pool.Slot(7)->Interval(), 8200);
}

TEST_F(Pool, ARoomThatGoesInItsOwnPingOrTickIsSafe) {
    OpenRoom("A", 11);
    pool.onPing = [&](int) { CloseRoom(1); };
    RunTo(100);
    for (int slot : {-1, 99}) pool.ClearTimer(slot);
    pool.UnloadChatTimers(0);
    EXPECT_EQ(pool.Count(), 8);
    auto& room = OpenRoom("B", 12);
    room.SetAutoUnrate(true);
    room.RateNotice(2, 1);
    host.onSay = [this] { CloseRoom(1); };
    RunTo(200);
    EXPECT_EQ(pool.Count(), 8);
    TimerPool fresh(platform, rooms);
    fresh.ClearTimer(0); // always stays
    EXPECT_EQ(fresh.Count(), 1);
}

} // namespace halyard
