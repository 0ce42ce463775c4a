#include "tests/practice/RawClient.h"

namespace halyard {

TEST(BadFrames, EndTheirConnectionOnly) {
    struct Scene : InRoom {
        void TestBody() override {}
    };
    auto snac = [](int family, int subtype, const char* hex) {
        auto bytes = SnacBytes(family, subtype, 1, HexToStr(hex));
        return "*" + ByteToStr(2) + WordToStr(0) + WordToStr(static_cast<long long>(bytes.size())) + bytes;
    };
    using Case = std::pair<const char*, std::string>;
    for (const auto& [what, bytes] :
         {Case{"marker", "x"}, Case{"channel 0", HexToStr("2A0000000000")},
          Case{"channel 6", HexToStr("2A0600000000")}, Case{"8193 bytes", HexToStr("2A0200002001")},
          Case{"empty data frame", HexToStr("2A0200000000")},
          Case{"half a head", HexToStr("2A0200000004000E0005")},
          Case{"prefix that lies", HexToStr("2A020000000C000E00058000000000010009")},
          Case{"line whose TLV lies", snac(0x0E, 5, "0000000000000001000300050010FF")},
          Case{"line without text", snac(0x0E, 5, "0000000000000001000300050000")},
          Case{"ban of nobody", snac(0x0E, 0x24, "")}, Case{"service request cut short", snac(1, 4, "00")},
          Case{"cookie that lies", snac(1, 4, "000E000100030004FF")}}) {
        Scene scene;
        scene.alice.chat->Bytes(bytes);
        EXPECT_TRUE(scene.alice.chat->closed) << what;
        EXPECT_FALSE(scene.alice.bos->closed) << what;
        EXPECT_EQ(scene.network.People("r"), std::vector<std::string>{"Bot"}) << what;
        scene.bot.Say("still here");
        EXPECT_EQ(scene.bot.chat->Count("000E0006"), 1) << what;
    }
}

TEST_F(InRoom, KeepAlivesAndSlowBytesAreFine) {
    bot.chat->Frame(5, "xxxx");
    bot.chat->Frame(3, "");
    auto bytes = SnacBytes(0x0E, 5, 1, Guest::Line("slow"));
    bytes = "*" + HexToStr("020000") + WordToStr(static_cast<long long>(bytes.size())) + bytes;
    for (char c : bytes) bot.chat->Bytes(std::string(1, c), 3);
    EXPECT_EQ(bot.chat->Count("000E0006"), 1);
    EXPECT_FALSE(bot.chat->closed);
}

TEST(BadFrames, SilentStrangersAreShownOut) {
    PracticeStage stage;
    RawClient silent(stage);
    stage.world.RunFor(59000);
    EXPECT_FALSE(silent.closed);
    stage.world.RunFor(3000);
    EXPECT_TRUE(silent.closed);
    EXPECT_EQ(stage.network.Connections(), 0u);
}

TEST_F(InRoom, ADeadPeerHoldsNobodyUp) {
    world.network.HalfOpen(alice.chat->Raw());
    for (int line = 1; line <= 8; ++line) {
        bot.Say("anyone there?", 8000);
        EXPECT_EQ(bot.chat->Count("000E0006"), line);
    }
    EXPECT_EQ(network.People("r"), std::vector<std::string>{"Bot"});
}

TEST(BadFrames, NoiseOfAnyKindBringsNothingDown) {
    PracticeOptions options;
    options.maxConnections = 20;
    PracticeStage stage(options, 7);
    stage.world.network.faults.cutBytes = true;
    Guest bot(stage, "Bot");
    bot.Join("r");
    auto pick = [&](int below) { return static_cast<int>(stage.platform.random.Fraction() * below); };
    for (int round = 0; round < 300; ++round) {
        Guest noisy(stage, "noisy");
        noisy.Join("r");
        std::string body;
        for (int i = pick(60); i > 0; --i) body += ByteToStr(pick(pick(2) ? 256 : 6));
        const int family = HexToStr("0102040D0E1317")[static_cast<std::size_t>(pick(7))];
        for (int subtype = 1; subtype < 0x26; ++subtype)
            (pick(2) ? noisy.bos : noisy.chat)->Frame(2, SnacBytes(family, subtype, 1, body), 1);
        RawClient(stage).Frame(1 + pick(5), body);
    }
    stage.world.RunFor(20000);
    bot.Say("still here");
    EXPECT_GE(bot.chat->Count("000E0006"), 1);
    EXPECT_LE(stage.network.Connections(), 20u);
}

} // namespace halyard
