// Requests for bans that nobody answers, and news that several hear.

#include "bridge/networks/BanAnswers.h"

#include "bridge/NewsFan.h"
#include "platform/sim/SimPlatform.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace halyard {
namespace {

TEST(BanAnswers, TellsOfSilenceOnceARequestAndOfNoBansOnceARoom) {
    SimWorld world(1);
    SimPlatform machine(world);
    std::vector<std::string> told;
    BanAnswers answers(machine, [&](const std::string& text) { told.push_back(text); });
    const auto count = [&] { return std::exchange(told, {}).size(); };
    answers.RoomEntered(1, "lobby", 4);
    answers.BanAsked(1, 7, BanRequestKind::Ban, "bob");
    answers.BanAsked(2, 7, BanRequestKind::Unban, "eve"); // the same id on another connection
    answers.BanAsked(1, 8, BanRequestKind::Ban, "dan");
    answers.BanAnswered(1, 8, BanVerdict::Refused, 3);
    world.RunFor(29000);
    EXPECT_EQ(count(), 0U);
    answers.BanAsked(1, 9, BanRequestKind::Ban, "late");
    answers.RoomLeft(2, "deck", "error");
    world.RunFor(2000);
    EXPECT_EQ(told,
              std::vector<std::string>{"No answer: the service has not said whether it bans bob in lobby."});
    answers.SignedOff();
    world.RunFor(60000);
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(answers.Waiting(), 0U);
    const auto events = world.clock.EventsRun();
    world.RunFor(60000);
    EXPECT_EQ(world.clock.EventsRun(), events) << "a timer runs for nothing";

    const auto refuse = [&](std::int16_t room) { answers.BanAnswered(room, 1, BanVerdict::NotEnforced, 1); };
    refuse(1), refuse(1), refuse(2);
    EXPECT_EQ(count(), 2U);
    answers.RoomEntered(1, "lobby", 4);
    refuse(1);
    EXPECT_EQ(count(), 1U);
    answers.enforcedElsewhere = true;
    answers.BanAsked(1, 10, BanRequestKind::Ban, "bob");
    answers.RoomEntered(1, "lobby", 4);
    refuse(1);
    world.RunFor(60000);
    EXPECT_EQ(count(), 0U);
}

struct Hearer : News {
    std::function<void()> act;
    int heard = 0;
    void SignedOff() override {
        ++heard;
        if (act) act();
    }
};

TEST(NewsFan, PassesOnWhileHearersComeAndGo) {
    NewsFan fan;
    Hearer first;
    Hearer second;
    Hearer third;
    first.act = [&] { fan.Remove(second), fan.Remove(first), fan.Add(third); };
    fan.Add(first), fan.Add(second);
    fan.SignedOff();
    EXPECT_EQ(first.heard + second.heard + third.heard, 1);
    fan.SignedOff();
    EXPECT_EQ(std::vector<int>({first.heard, second.heard, third.heard}), std::vector<int>({1, 0, 1}));
}

} // namespace
} // namespace halyard
