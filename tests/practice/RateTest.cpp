#include "tests/practice/RawClient.h"

namespace halyard {
namespace {

TEST(Rates, FastTalkerIsWarnedLimitedAndFreed) {
    Stage stage;
    Guest bot(stage, "Bot"), alice(stage, "alice");
    bot.Join("r");
    alice.Join("r");
    std::string codes;
    auto look = [&] {
        auto notice = alice.chat->Last(1, 0x0A);
        codes += notice.body.empty() ? "-" : std::to_string(*StrToWord(notice.body));
    };
    for (int line = 0; line < 8; ++line) alice.Say("spam", 100), look();
    // 8000 falls by a tenth a line: the fourth is below 5300, the seventh below 4200.
    EXPECT_EQ(codes, "---22233") << codes;
    EXPECT_EQ(stage.network.People("r").size(), 2u);
    auto heard = bot.chat->Count("000E0006");
    EXPECT_EQ(heard, 6); // what was limited nobody heard
    auto notice = alice.chat->Last(1, 0x0A).body;
    EXPECT_EQ(notice.size(), 2u + 35u);
    EXPECT_EQ(StrToHex(notice.substr(2, 2)), "0005");
    stage.world.RunFor(30000);
    EXPECT_EQ(*StrToWord(alice.chat->Last(1, 0x0A).body), 4);
    alice.Say("sorry");
    EXPECT_EQ(bot.chat->Count("000E0006"), heard + 1);
    for (int line = 0; line < 20; ++line) alice.Say("spam", 1);
    EXPECT_TRUE(alice.chat->closed);
    EXPECT_FALSE(stage.network.IsInRoom("r", "alice"));
}

TEST(Rates, ASteadyTalkerIsLeftAlone) {
    Stage stage;
    Guest bot(stage, "Bot");
    bot.Join("r");
    for (int line = 0; line < 100; ++line) bot.Say("tick", 8200);
    EXPECT_EQ(bot.chat->Count("000E0006"), 100);
    EXPECT_EQ(bot.chat->Count("0001000A"), 0);
}

TEST(Rates, OnDemandHoldsUntilCleared) {
    Stage stage;
    Guest bot(stage, "Bot");
    bot.Join("r");
    auto& levers = stage.network.Levers();
    levers.SetRate("r", "bot", 1, RateCode::Limit);
    bot.chat->Wait();
    EXPECT_EQ(StrToHex(bot.chat->Last(1, 0x0A).body.substr(0, 4)), "00030001");
    stage.world.RunFor(600000);
    bot.chat->Ask(0x0E, 0x24, Tlv(1, "bob"));
    EXPECT_FALSE(stage.network.IsBanned("r", "bob"));
    bot.Say("chat is another class");
    EXPECT_EQ(bot.chat->Count("000E0006"), 1);
    levers.SetRate("r", "bot", 1, RateCode::Clear);
    bot.chat->Ask(0x0E, 0x24, Tlv(1, "bob"));
    EXPECT_TRUE(stage.network.IsBanned("r", "bob"));
}

} // namespace
} // namespace halyard
