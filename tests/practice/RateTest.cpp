#include "tests/practice/RawClient.h"

namespace halyard {

TEST_F(InRoom, AFastTalkerIsWarnedLimitedAndFreed) {
    auto code = [this] { return std::to_string(*StrToWord(alice.chat->Last(1, 0x0A).body)); };
    alice.chat->Ask(1, 0x17, HexToStr("00010002")); // the first version with the long form
    for (int classId : {0, 6, 5}) network.Levers().SetRate("r", "alice", classId, RateCode::Clear);
    alice.chat->Wait();
    EXPECT_EQ(alice.chat->Count("0001000A"), 1) << "there are five classes";
    std::string codes;
    for (int line = 0; line < 8; ++line) alice.Say("spam", 100), codes += code();
    // 8000 falls by a tenth a line: the fourth is below 5300, the seventh below 4200.
    EXPECT_EQ(codes, "44422233");
    EXPECT_EQ(bot.chat->Count("000E0006"), 6); // what was limited nobody heard
    auto notice = alice.chat->Last(1, 0x0A).body;
    EXPECT_EQ(notice.size(), 2u + 35u);
    EXPECT_EQ(StrToHex(notice.substr(2, 2)), "0005");
    world.RunFor(30000);
    EXPECT_EQ(code(), "4");
    alice.Say("sorry");
    EXPECT_EQ(bot.chat->Count("000E0006"), 7);
    for (int line = 0; line < 20; ++line) alice.Say("spam", 1);
    EXPECT_TRUE(alice.chat->closed);
    EXPECT_EQ(network.People("r"), std::vector<std::string>{"Bot"});
}

} // namespace halyard
