#include "RoomScenario.h"
#include "rooms/TimeBan.h"

namespace halyard {

namespace {

class RoomLists : public RoomScenario {};

TEST_F(RoomLists, PeopleAreKeptOnceUnderTheirNormalNames) {
    auto& room = OpenRoom("Lobby", 3);
    for (const char* name : {"Some User", "someuser", "", "  ", "Bob"}) room.UserJoined(name);
    room.UserLeft("nobody");
    room.UserLeft("B OB");
    ASSERT_EQ(room.PeopleHere.Count(), 1U);
    EXPECT_EQ(room.PeopleHere.Item(1), "someuser");
}

TEST_F(RoomLists, EjectListsKeepNamesOnceAndLiftThemAll) {
    EjectList list;
    list.ChatIndex = 7;
    list.ChatName = "My Room";
    list.Exchange = 5;
    for (const char* name : {"Some User", "someuser", "Bob", "Cid"}) list.AddEject(name);
    list.RemoveEject("B o b");
    list.RemoveEject("absent");
    list.UnbanAll(host);
    Heard(Second(), "0 lift 7 unban someuser; 0 lift 7 unban cid");
    EXPECT_EQ(list.GetEjects().Count(), 2U); // they go when the service answers
    EXPECT_TRUE(list.IsOf("myROOM", 5));
    EXPECT_FALSE(list.IsOf("myroom", 4));
    EXPECT_FALSE(list.IsOf("myroom2", 5));
}

// Ticks until the record is over.
int LifeOf(std::string record, TimeBanTick& last) {
    int ticks = 0;
    do {
        last = TickTimeBan(record);
        record = last.record;
        ++ticks;
    } while (!last.over && ticks < 100000);
    return ticks;
}

TEST(TimeBan, AMinuteTakes61TicksAndTheEndOneMore) {
    TimeBanTick last;
    EXPECT_EQ(TickTimeBan("Bob:Lobby:4:0:7:2:2:0").record, "Bob:Lobby:4:0:7:2:1:60");
    EXPECT_EQ(NewTimeBan("Bob", "Lobby", 4, 0, 7, "2"), "Bob:Lobby:4:0:7:2:2:60");
    for (int minutes : {1, 2, 999})
        EXPECT_EQ(LifeOf(NewTimeBan("Bob", "Lobby", 4, 0, 7, std::to_string(minutes)), last),
                  minutes * 61 + 1);
    EXPECT_EQ(last.user, "Bob");
    EXPECT_EQ(last.intChatIndex, 7);
    EXPECT_EQ(last.minutes, "999");
    EXPECT_EQ(last.record, "");
}

TEST(TimeBan, BrokenRecordsEndAtOnce) {
    for (const char* record : {"", "Bob", "a:b:c:d:e:f:g:h", ":::::::::::"})
        EXPECT_TRUE(TickTimeBan(record).over);
}

TEST(TimeBan, IsOfOnePersonInOneRoom) {
    const auto record = NewTimeBan("Some User", "My Room", 4, 1, 7, "5");
    EXPECT_TRUE(IsTimeBanOf(record, "someuser", "MYROOM", 4, 1));
    EXPECT_FALSE(IsTimeBanOf(record, "someuser2", "myroom", 4, 1) ||
                 IsTimeBanOf(record, "someuser", "myroom2", 4, 1));
    EXPECT_FALSE(IsTimeBanOf(record, "someuser", "myroom", 5, 1) ||
                 IsTimeBanOf(record, "someuser", "myroom", 4, 0));
    EXPECT_FALSE(IsTimeBanOf("", "", "", 0, 0));
}

} // namespace

} // namespace halyard
