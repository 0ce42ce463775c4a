// The bot's own protocol control against the practice network: what each says, the other understands.

#include "tests/oscar/Wire.h"
#include "tests/practice/RawClient.h"

namespace halyard {
namespace {

struct BotStage : Stage {
    explicit BotStage(std::uint64_t seed = 1) : Stage({}, seed) {
        control.DefaultChatSends();
        control.CreateTimer("tban");
    }
    bool Happened(const std::string& line) const {
        return std::any_of(events.lines.begin(), events.lines.end(),
                           [&](const auto& each) { return each.starts_with(line); });
    }
    bool Until(const std::string& line) {
        return world.RunUntil([&] { return Happened(line); }, 5000);
    }
    void SignOnAndJoin(bool hashed = true) {
        settings.LoginMD5 = hashed;
        control.Login("The Bot", "pw", 5190, hashed, false, "127.0.0.1");
        ASSERT_TRUE(Until("LoggedIn|The Bot|thebot@localhost|127.0.0.1"));
        control.JoinChat("myroom", 4, 0);
        ASSERT_TRUE(Until("JoinedChat|myroom|4|0|"));
    }

    SimPlatform machine{world};
    OscarSettings settings;
    EventLog events;
    TillerSock control{machine, settings, events, events};
};

TEST(Bot, JoinsHearsBansAndIsRefused) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        BotStage stage(seed);
        stage.world.network.faults.cutBytes = seed > 1;
        stage.world.network.faults.latencyMax = 40;
        std::string problem;
        stage.network.Play(*ParseScript(
            "room myroom\nhere alice, bob\n1 alice says ban bob\n2 carol ims thebot 1:status", problem));
        stage.SignOnAndJoin(seed % 2);
        EXPECT_TRUE(stage.Noted("|The Bot|is ready"));
        EXPECT_TRUE(stage.Until("UserJoinedChat|2|bob"));
        EXPECT_TRUE(stage.Until("UpdatedStats|#ofownedchats"));
        EXPECT_TRUE(stage.Until("ChatMessage|2|alice|ban bob"));
        EXPECT_TRUE(stage.Until("InstantMessage|carol|1:status|1"));
        stage.control.BanUser("bob", BanKind::Ban, 2);
        EXPECT_TRUE(stage.Until("AddedEject|bob"));
        EXPECT_TRUE(stage.Until("UserLeftChat|2|bob"));
        EXPECT_TRUE(stage.network.IsBanned("myroom", "bob"));
        stage.control.UnbanUser("bob", BanKind::Unban, 2);
        EXPECT_TRUE(stage.Until("RemovedEject|bob"));
        stage.network.Levers().SetOwner("myroom", "alice");
        auto said = stage.journal.size();
        stage.world.RunFor(12000);
        stage.control.BanUser("carol", BanKind::Ban, 2);
        stage.world.RunFor(2000);
        EXPECT_FALSE(stage.network.IsBanned("myroom", "carol"));
        EXPECT_TRUE(std::any_of(
            stage.journal.begin() + static_cast<std::ptrdiff_t>(said), stage.journal.end(),
            [](const auto& line) { return line.find("Ownership not acquired") != std::string::npos; }));
    }
}

TEST(Bot, UserInfoErrorsRatesAndMigration) {
    BotStage stage;
    auto& levers = stage.network.Levers();
    stage.SignOnAndJoin();
    Guest alice(stage, "alice");
    stage.control.GetUserInfo("alice");
    EXPECT_TRUE(stage.Until("IncomingUserInfo|alice|0|"));
    stage.control.GetUserInfo("nobody");
    EXPECT_TRUE(stage.Until("Error|User not available|4|0|0002"));
    stage.control.SendIM("nobody", "hello");
    EXPECT_TRUE(stage.Until("Error|User not available|4|0|0004"));
    stage.control.SendIM("alice", "hello");
    stage.world.RunFor(100);
    EXPECT_EQ(alice.bos->Count("00040007"), 1);

    for (int line = 0; line < 4; ++line) stage.control.SendChat(2, "too fast");
    EXPECT_TRUE(stage.Until("Rated|1|myroom"));
    levers.Pause("thebot");
    levers.Migrate("thebot");
    stage.world.RunFor(2000);
    EXPECT_TRUE(stage.Noted("|The Bot|comes back from a migration"));
    EXPECT_TRUE(stage.network.IsInRoom("myroom", "thebot"));
    EXPECT_FALSE(stage.Happened("ConnectionLost") || stage.Happened("LeftChat"));

    for (const auto& [word, reason] :
         {std::pair{0x4A, "ejected.|74"}, {0x18, "full.|24"}, {0x30, "rated.|48"}}) {
        levers.RefuseNextJoin(word);
        stage.control.JoinChat("another", 4, 0);
        EXPECT_TRUE(stage.Until(std::string("Error|Join chat failed, ") + reason + "|0|000D"));
    }
    levers.RefuseNextCreation(0x12);
    stage.control.JoinChat("another", 4, 0);
    EXPECT_TRUE(stage.Until("Error|Join chat failed, you are already in the max"));
    levers.SignOffFromRoom("myroom", "thebot");
    EXPECT_TRUE(stage.Until("LeftChat|myroom|4|0|2|error"));
}

} // namespace
} // namespace halyard
