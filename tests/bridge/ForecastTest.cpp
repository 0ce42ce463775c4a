// What is told of waiting lines and bans, held to what then happens to them.

#include "bridge/watch/Forecast.h"

#include "rooms/ChatSendKeys.h"
#include "tests/rooms/RoomScenario.h"

#include <map>

namespace halyard {
namespace {

class ForecastScene : public RoomScenario {
  protected:
    static constexpr std::int16_t Slot = 3;

    Truth truth{platform, host.telling};
    Chats* room = nullptr;

    void Open(float banPause = 2) {
        host.telling.news = &truth;
        room = &OpenRoom("Harbour", Slot, banPause);
        truth.RoomOpened(Slot, "Harbour", 4);
    }
    const RoomTruth& Said() const { return *truth.Room(Slot); }
    using Moments = std::map<std::int64_t, std::pair<std::int64_t, bool>>; // when, and whether overtaken
    Moments Foretold() const {
        Moments all;
        for (const auto& line : ForecastLines(Said(), world.Now()))
            all[line.number] = {line.at, line.overtaken};
        return all;
    }
    /// Lets all that waits go; when each line did.
    Moments Played() {
        Moments all;
        const auto limit = world.Now() + 600000;
        while (!Said().lines.empty() && world.Now() < limit) {
            std::set<std::int64_t> waited;
            for (const auto& line : Said().lines) waited.insert(line.send.Number);
            const auto droppedBefore = truth.DroppedCount();
            world.clock.RunNext();
            for (const auto& line : Said().lines) waited.erase(line.send.Number);
            for (const auto number : waited)
                all[number] = {world.Now(), truth.DroppedCount() > droppedBefore};
        }
        return all;
    }
};

// Keys of every group by which lines wait, long and short names, and two second values.
TEST_F(ForecastScene, EachLineGoesWhenItWasToldTo) {
    Open();
    for (int round = 0; round < 15; ++round) {
        for (auto count = world.chance.Between(1, 40); count > 0; --count) {
            static constexpr const char* keys[] = {"banned", "kicked", "tbanned", "cb", "icq"};
            const auto key = keys[world.chance.Between(0, 4)];
            const bool merged = SendGroupOf(key) != SendGroup::OneByOne;
            const std::string name(static_cast<std::size_t>(world.chance.Between(1, 30)), 'n');
            Send(*room, key, "the bot says: %p, %s, %d", name, world.chance.Chance(0.5) ? "x" : "y",
                 merged ? "msg1" : "msg2");
            world.RunFor(world.chance.Between(0, 300));
        }
        const auto foretold = Foretold();
        ASSERT_EQ(foretold.size(), room->MsgQueue.Count());
        EXPECT_EQ(Played(), foretold) << "round " << round;
        world.RunFor(world.chance.Between(0, 12000));
    }
    EXPECT_GT(truth.DroppedCount(), 0U) << "some were overtaken";
    EXPECT_EQ(truth.Dropped().back().line, LineDrop::Overtaken);
}

TEST_F(ForecastScene, EachBanGoesWhenItWasToldTo) {
    for (const float pause : {0.5F, 2.0F, 59.9F, 60.0F, 90.5F}) {
        host.transcript.clear();
        rooms.Clear();
        Open(pause);
        room->StartBanPause();
        world.RunFor(300);
        std::string foretold;
        for (const int id : {7, 8, 9}) {
            room->QueueBan("bob", Slot, id, BanKind::Ban, "");
            truth.BanWanted(Slot, id, BanKind::Ban, "bob", "");
        }
        for (const auto& ban : ForecastBans(Said(), world.Now(), room->BanPause()))
            foretold += NumberText(static_cast<double>(ban.at) / 1000) + " ban 3 " +
                        std::to_string(ban.number) + " bob; ";
        world.RunFor(400000);
        std::string asked;
        for (const auto& line : Transcript())
            if (line.find(" ban ") != line.npos) asked += line + "; ";
        EXPECT_EQ(asked, foretold) << pause;
    }
}

// The clock of half minutes is one for both classes, and whoever begins it begins it for both.
TEST_F(ForecastScene, ALimitEndsWhenItWasToldTo) {
    const auto freed = [this](std::size_t classId) {
        const auto told = Said().freeAt[classId];
        while (Said().rated[classId] && world.Now() < 4000000) world.RunFor(1);
        return std::pair(told, world.Now());
    };
    Open();
    room->SetUnratePause(2);
    room->RateNotice(3, 1); // without auto unrate
    EXPECT_EQ(Said().freeAt[1], -1);
    world.RunFor(5000);
    room->RateNotice(3, 5);
    EXPECT_GT(Said().freeAt[1], 0) << "the other class has begun the clock";
    const auto lines = freed(5);
    EXPECT_EQ(lines.first, lines.second);
    room->SetUnratePause(5);
    const auto bans = freed(1);
    EXPECT_EQ(bans.first, bans.second);
    EXPECT_EQ(bans.second, 5000 + 5 * 60000);

    room->SetAutoUnrate(true);
    room->RateNotice(2, 1);
    world.RunFor(10000);
    room->RateNotice(2, 5); // ends with the clock's first half minute
    const auto soon = freed(5);
    EXPECT_EQ(soon.first, soon.second);
    EXPECT_EQ(soon.second, bans.second + 30000);
}

} // namespace
} // namespace halyard
