#include "practice/people/Lobby.h"
#include "tests/practice/RawClient.h"

namespace halyard {
namespace {

TEST(People, MessageUserInfoAndProfile) {
    PracticeStage stage;
    Guest bot(stage, "Bot"), alice(stage, "Alice");
    alice.bos->Ask(4, 6,
                   HexToStr("00000000000000010001") + ShortString("b o t") +
                       Tlv(2, HexToStr("0501000101") + Tlv(0x0101, HexToStr("00000000") + "hi")) +
                       Tlv(3, ""));
    auto got = bot.bos->Last(4, 7).body;
    EXPECT_EQ(got.substr(0, 16), HexToStr("00000000000000010001") + ShortString("Alice"));
    EXPECT_NE(got.find("hi"), std::string::npos);
    EXPECT_EQ(alice.bos->Count("0004000C"), 1);
    alice.bos->Ask(2, 4, Tlv(1, "text/plain") + Tlv(2, "my profile"));
    stage.world.RunFor(90000);
    bot.bos->Ask(2, 0x15, HexToStr("00000001") + ShortString("alice"), 0x15);
    auto info = bot.bos->Last(2, 6);
    EXPECT_EQ(info.id, 0x15u);
    EXPECT_EQ(StrToHex(info.body.substr(0, 16)), "05416C69636500000003000100020010");
    EXPECT_EQ(Mid(info.body, 33), Tlv(1, "text/plain") + Tlv(2, "my profile"));
    bot.bos->Ask(2, 5, HexToStr("0003") + ShortString("alice"));
    EXPECT_EQ(bot.bos->Last(2, 6).body.size(), 32u);
    bot.bos->Ask(2, 5, HexToStr("0003") + ShortString("nobody"));
    EXPECT_EQ(StrToHex(bot.bos->Last(2, 1).body), "0004");
    alice.bos->Frame(4, "");
    EXPECT_FALSE(stage.network.IsOnLine("alice"));
}

TEST(People, ASecondSignOnEndsTheFirstAndItsRooms) {
    PracticeStage stage;
    Guest first(stage, "Bot");
    first.Join("r");
    stage.network.Levers().Pause("bot");
    stage.network.Levers().Resume("bot");
    first.bos->Wait();
    EXPECT_TRUE(first.bos->Keys().ends_with("0001000B 0001000D"));
    stage.network.Levers().Migrate("bot");
    first.bos->Wait(), first.bos->Hang();
    EXPECT_TRUE(stage.network.IsOnLine("bot"));
    RawClient moved(stage);
    moved.Begin(RawClient::Tlvs({.body = Mid(first.bos->Last(1, 0x12).body, 3)}, 6));
    EXPECT_TRUE(stage.Noted("|Bot|comes back from a migration") && stage.network.IsInRoom("r", "bot"));
    Guest second(stage, "bot");
    EXPECT_EQ(moved.frames.back(), std::make_pair(4, std::string()));
    EXPECT_TRUE(moved.closed && first.chat->closed);
    EXPECT_TRUE(stage.network.IsOnLine("bot"));
    EXPECT_FALSE(stage.network.IsInRoom("r", "bot"));
    second.Join("r");
    EXPECT_EQ(second.chat->Count("000E0030"), 1); // the room is still its own
    PracticeOptions options;
    options.ways = WaysOf(Departure::MainSignOffs);
    PracticeStage open(options);
    Guest old(open, "Bot"), anew(open, "bot");
    EXPECT_EQ(old.bos->frames.back(),
              std::make_pair(4, Tlv(9, ByteToStr(1)) + Tlv(0x0B, "http://127.0.0.1/displaced")));
}

Script Parsed(const std::string& text) {
    std::string problem;
    auto script = ParseScript(text, problem);
    EXPECT_TRUE(script) << problem;
    return script.value_or(Script{});
}

TEST(People, ScriptPlaysToTheSecond) {
    PracticeStage stage;
    stage.network.Play(
        Parsed("room myroom\r\nhere alice, Room Boss\n# remark\n20 carol ims Bot 1:status\n12 Room Boss says "
               "ban bob\n"
               "5 bob enters\n30 bob enters\n40 bob enters\n45.5 alice leaves\n50 network limits Bot 5\n"));
    stage.world.RunFor(60000); // the clock waits for a client
    Guest bot(stage, "Bot");
    bot.Join("myroom");
    auto start = stage.world.Now();
    auto at = [&](int second) { stage.world.RunFor(start + second * 1000 - stage.world.Now()); };
    EXPECT_EQ(stage.network.People("myroom"), (std::vector<std::string>{"alice", "Room Boss", "Bot"}));
    for (int second : {4, 5}) {
        at(second);
        EXPECT_EQ(stage.network.IsInRoom("myroom", "bob"), second == 5);
    }
    at(12);
    EXPECT_EQ(bot.chat->Count("000E0006"), 1);
    bot.chat->Ask(0x0E, 0x24, Tlv(1, "bob"));
    EXPECT_FALSE(stage.network.IsInRoom("myroom", "bob"));
    at(31);
    EXPECT_TRUE(stage.Noted("myroom|bob|cannot come in: kept out"));
    EXPECT_EQ(bot.bos->Count("00040007"), 1);
    bot.chat->Ask(0x0E, 0x25, Tlv(1, "bob"));
    at(51);
    EXPECT_EQ(stage.network.People("myroom"), (std::vector<std::string>{"Room Boss", "Bot", "bob"}));
    EXPECT_EQ(StrToHex(bot.chat->Last(1, 0x0A).body.substr(0, 4)), "00030005");
}

TEST(People, ScriptProblemsNameTheLine) {
    for (const auto& text :
         Split("5 bob enters|room\n|room r\nbob enters|room r\n5 bob dances|room r\n5 bob says|"
               "room r\n-1 bob enters|room r\nrepeat 0|room r\nexchange 99999|"
               "room r\n5 enters|room r\nclock maybe",
               "|")) {
        std::string problem;
        EXPECT_FALSE(ParseScript(text, problem)) << text;
        EXPECT_EQ(problem.substr(0, 5), "line ") << text;
    }
    std::string none;
    EXPECT_TRUE(ParseScript("room r\nexchange 5", none)) << none;
}

TEST(People, LobbyGoesOnForHours) {
    PracticeStage stage;
    stage.network.Play(Parsed(std::string(LobbyScript())));
    stage.world.RunFor(3600 * 1000);
    EXPECT_TRUE(stage.Noted("lobby|rowdy20|enters"));
    EXPECT_LT(stage.network.People("lobby").size(), 10u);
}

} // namespace
} // namespace halyard
