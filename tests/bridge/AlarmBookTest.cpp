// Whether an alarm rings, as a table of what was told, what is, and the rest; and the book that keeps both.

#include "bridge/watch/alarms/AlarmBook.h"

#include "platform/sim/SimPlatform.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

TEST(ToRingTest, Table) {
    constexpr std::int64_t rest = 100;
    constexpr std::int64_t now = 1000;
    constexpr AlarmTold never{};
    constexpr AlarmTold stands{500, true};
    constexpr AlarmTold rests{950, false};
    constexpr AlarmTold rested{900, false};
    constexpr AlarmTold longAgo{100, false};
    struct Row {
        const char* what;
        AlarmTold told;
        AlarmNow is;
        RingReason reason;
    };
    const Row rows[] = {
        {"nothing is", never, {}, RingReason::Nothing},
        {"it begins", never, {.fires = true, .since = 1000}, RingReason::First},
        {"beside another", never, {.fires = true, .since = 1000, .others = true}, RingReason::More},
        {"others alone", never, {.others = true}, RingReason::Nothing},
        {"it goes on", stands, {.fires = true, .since = 500}, RingReason::Nothing},
        {"for long", {0, true}, {.fires = true, .since = 0}, RingReason::Nothing},
        {"it ends", stands, {.since = 500, .ended = true}, RingReason::Ended},
        {"it ends in its rest", {990, true}, {.since = 990, .ended = true}, RingReason::Ended},
        {"it ends beside others", stands, {.ended = true, .others = true}, RingReason::Ended},
        {"it fires anew before its end was told",
         stands,
         {.fires = true, .since = 999, .ended = true},
         RingReason::Ended},
        {"it fires anew in its rest", rests, {.fires = true, .since = 990}, RingReason::Nothing},
        {"in its rest beside others",
         rests,
         {.fires = true, .since = 990, .others = true},
         RingReason::Nothing},
        {"it came and went untold", rests, {.since = 990}, RingReason::Nothing},
        {"it began in its rest and lasts", rested, {.fires = true, .since = 960}, RingReason::RestOver},
        {"the same beside others",
         rested,
         {.fires = true, .since = 960, .others = true},
         RingReason::RestOver},
        {"it begins as the rest ends", rested, {.fires = true, .since = 1000}, RingReason::First},
        {"long after its rest", longAgo, {.fires = true, .since = 1000}, RingReason::First},
        {"long after, beside others",
         longAgo,
         {.fires = true, .since = 1000, .others = true},
         RingReason::More},
    };
    for (const auto& row : rows) EXPECT_EQ(ToRing(row.told, row.is, rest, now), row.reason) << row.what;
    EXPECT_EQ(ToRing({950, false}, {.fires = true, .since = 1000}, 0, now), RingReason::First) << "no rest";
}

class AlarmBookTest : public ::testing::Test {
  protected:
    AlarmBookTest() {
        book.onRing = [this](const Ring& ring) {
            rings += std::string(WordOf(ring.reason)) + " " + ring.subject + ";";
            if (again) std::exchange(again, nullptr)();
        };
        book.onKeep = [this](const Ring& ring) {
            kept += std::string(WordOf(ring.reason)) + " " + ring.subject + ";";
        };
    }
    void Raise(const char* room) { book.Raise(AlarmKind::RoomLost, room, "It is closed."); }
    void End(const char* room) { book.End(AlarmKind::RoomLost, room, "Back."); }
    void Minutes(int minutes) { world.RunFor(minutes * 60'000LL); }
    std::string Rings() { return std::exchange(rings, {}); }
    std::string Kept() { return std::exchange(kept, {}); }

    SimWorld world{1};
    SimPlatform machine{world};
    AlarmBook book{machine};
    std::string rings, kept;
    std::function<void()> again;
};

TEST_F(AlarmBookTest, OnceACauseWithItsEndAndItsRest) {
    Raise("lobby"), Raise("lobby"), Raise("harbour");
    EXPECT_EQ(Rings(), "first lobby;more harbour;");
    ASSERT_EQ(book.Ringing().size(), 2U);
    EXPECT_EQ(SentenceOf(book.Rang().front()), "Room lost: lobby. It is closed.");
    Minutes(10);
    End("lobby"), End("lobby"), End("attic");
    EXPECT_EQ(Rings(), "ended lobby;");
    EXPECT_EQ(SentenceOf(book.Rang().back()), "Over: room lost: lobby. Back.");
    Raise("lobby"), Minutes(5), End("lobby"); // untold, within its rest
    EXPECT_EQ(Kept(), "first lobby;more harbour;ended lobby;nothing lobby;");
    Raise("lobby"), Minutes(14);
    EXPECT_EQ(Rings(), "");
    Minutes(2);
    EXPECT_EQ(Rings(), "rest-over lobby;");
    End("lobby"), End("harbour"), Rings(), Minutes(60), Raise("lobby");
    EXPECT_EQ(Rings(), "first lobby;");
}

TEST_F(AlarmBookTest, OwnDoingAndWhatIsOffRingNothing) {
    Raise("lobby"), book.Withdraw(AlarmKind::RoomLost, "lobby");
    EXPECT_EQ(Rings(), "first lobby;");
    EXPECT_EQ(Kept(), "first lobby;ended lobby;");
    EXPECT_TRUE(book.Ringing().empty());
    AlarmTerms terms;
    terms.Of(AlarmKind::RoomLost).on = false;
    Raise("lobby"), book.SetTerms(terms), Raise("attic"), End("attic");
    EXPECT_EQ(Rings(), "first lobby;");
    EXPECT_TRUE(book.Ringing().empty());
    for (int subject = 0; subject < 200; ++subject)
        book.Raise(AlarmKind::NotWritten, std::to_string(subject), "");
    EXPECT_EQ(book.Ringing().size(), AlarmBook::MostSubjects);
}

TEST_F(AlarmBookTest, FiresAnewWhileItsEndIsTold) {
    Raise("lobby"), Minutes(40);
    again = [this] { Raise("lobby"); };
    End("lobby");
    EXPECT_EQ(Rings(), "first lobby;ended lobby;first lobby;");
    EXPECT_EQ(book.Ringing().size(), 1U);
    again = [this] { Raise("lobby"); };
    End("lobby"); // and now in its rest
    EXPECT_EQ(Rings(), "ended lobby;");
    EXPECT_TRUE(book.Fires(AlarmKind::RoomLost, "lobby"));
    Minutes(31);
    EXPECT_EQ(Rings(), "rest-over lobby;");
}

} // namespace
} // namespace halyard
