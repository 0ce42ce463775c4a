#include "rooms/TimeBan.h"
#include "tests/rooms/RoomScenario.h"

namespace halyard {

class RoomLists : public RoomScenario {};

TEST_F(RoomLists, KeepNamesOnceUnderTheirNormalForm) {
    auto& room = OpenRoom("Lobby", 3);
    EjectList list;
    list.ChatIndex = 7;
    list.ChatName = "My Room";
    list.Exchange = 5;
    for (const char* name : {"Some User", "someuser", "", "  ", "Bob", "Cid"}) {
        room.UserJoined(name);
        list.AddEject(name);
    }
    for (const char* name : {"B o b", "absent"}) {
        room.UserLeft(name);
        list.RemoveEject(name);
    }
    EXPECT_EQ(room.PeopleHere.Count(), 2U);
    list.UnbanAll(host);
    Heard(Second(), "0 lift 7 someuser; 0 lift 7 cid");
    EXPECT_EQ(list.GetEjects().Count(), 2U); // they go when the service answers
    EXPECT_TRUE(list.IsOf("myROOM", 5));
    EXPECT_FALSE(list.IsOf("myroom", 4) || list.IsOf("myroom2", 5));
}

TEST(TimeBan, AMinuteTakes61TicksAndTheEndOneMore) {
    EXPECT_EQ(NewTimeBan("Bob", "Lobby", 4, 0, 7, "2"), "Bob:Lobby:4:0:7:2:2:60");
    EXPECT_EQ(TickTimeBan("Bob:Lobby:4:0:7:2:2:1").record, "Bob:Lobby:4:0:7:2:2:0");
    EXPECT_EQ(TickTimeBan("Bob:Lobby:4:0:7:2:2:0").record, "Bob:Lobby:4:0:7:2:1:60");
    EXPECT_FALSE(TickTimeBan("Bob:Lobby:4:0:7:2:1:0").over);
    const auto last = TickTimeBan("Bob:Lobby:4:0:7:2:0:60");
    EXPECT_TRUE(last.over);
    EXPECT_EQ(last.user + last.minutes + last.record, "Bob2");
    EXPECT_EQ(last.intChatIndex, 7);
    for (const char* broken : {"", "Bob", "a:b:c:d:e:f:g:h", ":::::::::::"})
        EXPECT_TRUE(TickTimeBan(broken).over);
}

TEST(TimeBan, IsOfOnePersonInOneRoom) {
    const auto record = NewTimeBan("Some User", "My Room", 4, 1, 7, "5");
    using Case = std::tuple<const char*, const char*, int, int>;
    for (auto [user, room, exchange, instance] :
         {Case{"someuser", "MYROOM", 4, 1}, Case{"someuser2", "myroom", 4, 1},
          Case{"someuser", "room2", 4, 1}, Case{"someuser", "myroom", 5, 1},
          Case{"someuser", "myroom", 4, 0}})
        EXPECT_EQ(IsTimeBanOf(record, user, room, exchange, instance), room == std::string("MYROOM"));
    EXPECT_FALSE(IsTimeBanOf("", "", "", 0, 0));
    const auto tea = TickTimeBan(NewTimeBan("Some User", "Tea: Room", 4, 1, 7, "5")).record;
    EXPECT_EQ(tea, "Some User:Tea: Room:4:1:7:5:5:59");
    EXPECT_TRUE(IsTimeBanOf(tea, "someuser", "tea:room", 4, 1));
    EXPECT_EQ(TickTimeBan("Bob:Tea: Room:4:1:7:5:0:60").intChatIndex, 7);
}

} // namespace halyard
