#include "tests/practice/RawClient.h"

#include <deque>

namespace halyard {

TEST(Room, BlockAndEntryByteForByte) {
    PracticeStage stage;
    Guest bot(stage, "Bot");
    auto block = bot.Create("My Room");
    auto wanted = HexToStr("0004") + ShortString("4-0-My Room") + HexToStr("0000020005") +
                  Tlv(0x006A, "My Room") + HexToStr("00D1000207D000D200020032") + Tlv(0x00D3, "My Room") +
                  HexToStr("00DA000200E8");
    EXPECT_EQ(StrToHex(block), StrToHex(wanted));

    bot.chat = bot.Open(0x000E, Guest::Wish("My Room"), false);
    EXPECT_EQ(bot.chat->Keys(), "00010003 00010018 00010007"); // and nothing of the room
    EXPECT_TRUE(stage.network.People("myroom").empty());
    bot.chat->Ask(1, 2);
    EXPECT_EQ(bot.chat->Keys(), "00010003 00010018 00010007 000E0002 000E0003 000E0030");
    EXPECT_EQ(StrToHex(bot.chat->Last(0x0E, 2).body), StrToHex(wanted));
    EXPECT_EQ(bot.chat->Last(0x0E, 0x30).body, "Bot");

    Guest alice(stage, "Alice");
    alice.Join("my room");
    EXPECT_EQ(stage.network.Owner("My Room"), "Bot");
    EXPECT_EQ(alice.chat->Count("000E0030"), 0);
    auto everyone = alice.chat->Last(0x0E, 3).body;
    EXPECT_EQ(StrToHex(everyone.substr(0, 14)), "03426F7400000003000100020010");
    EXPECT_NE(everyone.find(ShortString("Alice")), std::string::npos);
    EXPECT_EQ(bot.chat->Last(0x0E, 3).body.substr(0, 6), ShortString("Alice"));
    alice.chat->Hang(); // closing is leaving
    EXPECT_EQ(bot.chat->Last(0x0E, 4).body.substr(0, 6), ShortString("Alice"));
}

TEST_F(InRoom, LinesGoToAllAndBackWhenAsked) {
    bot.Say("hello");
    for (auto* client : {bot.chat.get(), alice.chat.get()}) {
        auto line = client->Last(0x0E, 6);
        EXPECT_EQ(StrToHex(line.body.substr(0, 10)), "00000000000000010003");
        line.body.erase(0, 10);
        EXPECT_EQ(RawClient::Tlvs(line, 3).substr(0, 4), ShortString("Bot"));
        EXPECT_EQ(RawClient::Tlvs(line, 5), Tlv(0x0001, "hello") + Tlv(0x0002, "us-ascii"));
    }
    alice.chat->Ask(0x0E, 5, Replace(Guest::Line("quietly"), Tlv(0x0006, ""), ""));
    EXPECT_EQ(bot.chat->Count("000E0006"), 2);
    EXPECT_EQ(alice.chat->Count("000E0006"), 1);
    alice.Say(std::string(2001, 'x'));
    EXPECT_EQ(bot.chat->Count("000E0006"), 2);
    EXPECT_TRUE(Noted("r|alice|says more than the room takes, which is dropped"));
}

TEST_F(InRoom, OtherLettersAreReadableInTheJournal) {
    const auto wide = HexToStr("00480061006C006C00F6002020AC0430"); // "Hallö €" and a Cyrillic letter
    const auto said = [&](const std::string& block) {
        alice.chat->Ask(0x0E, 5,
                        Replace(Guest::Line(""), Tlv(5, Tlv(1, "") + Tlv(2, "us-ascii")), Tlv(5, block)));
        return Mid(journal.back(), 14);
    };
    EXPECT_EQ(said(Tlv(1, wide) + Tlv(2, "unicode-2-0")), "Hall\xF6 \x80?");
    EXPECT_EQ(said(Tlv(2, "iso-8859-1") + Tlv(1, "<b>gr\xFC\xDF</b>")), "gr\xFC\xDF");
    for (const auto& [charset, text, shown] : {std::tuple("0002", wide, "Hall\xF6 \x80?"),
                                               std::tuple("0003", std::string("gr\xFC\xDF"), "gr\xFC\xDF")}) {
        const auto part = Tlv(0x0501, "\1") + Tlv(0x0101, HexToStr(charset) + HexToStr("0000") + text);
        alice.bos->Ask(4, 6, "12345678" + WordToStr(1) + ShortString("bot") + Tlv(2, part));
        EXPECT_EQ(journal.back(), std::string("|alice|sends Bot the message ") + shown);
    }
}

TEST(Room, BansRefusalsAndWhoIsKeptOut) {
    PracticeStage stage;
    Guest bot(stage, "Bot"), bob(stage, "Bob The Rower"), eve(stage, "eve");
    for (auto* guest : {&bot, &bob, &eve}) guest->Join("r");
    auto ban = [](Guest& by, int subtype, const std::string& target) {
        by.chat->Ask(0x0E, subtype, target.empty() ? Tlv(0x23, "Chat") : Tlv(1, target), 0xBEEF);
        auto reply = by.chat->Last(0x0E, 1);
        EXPECT_EQ(reply.id, 0xBEEFu);
        return StrToHex(reply.body);
    };
    for (int subtype : {0x23, 0x24, 0x25})
        EXPECT_EQ(ban(eve, subtype, subtype == 0x23 ? "" : "bob"), "000D000800020048");
    EXPECT_EQ(ban(bot, 0x24, "b o t"), "000D000800020049");
    EXPECT_EQ(ban(bot, 0x24, "BobTheRower"), "0000");
    EXPECT_EQ(eve.chat->Last(0x0E, 4).body.substr(0, 14), ShortString("Bob The Rower"));
    EXPECT_EQ(bob.chat->frames.back(), std::make_pair(4, std::string()));
    EXPECT_TRUE(bob.chat->closed);
    EXPECT_EQ(stage.network.Bans("r"), std::vector<std::string>{"BobTheRower"});
    auto again = [&](Guest& who) {
        who.bos->Ask(1, 4, WordToStr(0x0E) + Guest::Wish("r"), 0x55);
        auto error = who.bos->Last(1, 1);
        return error.id == 0x55 ? StrToHex(error.body) : "";
    };
    EXPECT_EQ(again(bob), "000D00080002004A");
    EXPECT_EQ(again(eve), "000D00080002002E");
    EXPECT_TRUE(stage.Noted("r|Bob The Rower|is not let in: banned"));
    EXPECT_EQ(ban(bot, 0x25, "bob the rower"), "0000");
    bob.Join("r");
    EXPECT_TRUE(stage.network.IsInRoom("r", "bobtherower"));
    stage.network.Levers().SetOwner("r", "eve");
    EXPECT_EQ(ban(bot, 0x24, "bobtherower"), "000D000800020048");
    EXPECT_EQ(ban(eve, 0x23, ""), "0000");
    EXPECT_TRUE(stage.network.People("r").empty());
    EXPECT_TRUE(bob.chat->closed && eve.chat->closed && bot.chat->closed);
}

TEST(Room, FullRefusedAndInvalid) {
    PracticeStage stage;
    Guest bot(stage, "Bot");
    bot.Join("r");
    auto word = [&](const std::string& room) {
        Guest other(stage, "other");
        other.bos->Ask(1, 4, WordToStr(0x0E) + Guest::Wish(room));
        return StrToHex(RawClient::Tlvs({.body = Mid(other.bos->Last(1, 1).body, 3)}, 8));
    };
    stage.network.Levers().RefuseNextJoin(0x30);
    EXPECT_EQ(word("R"), "0030");
    EXPECT_EQ(word("R"), "");
    stage.network.Levers().RefuseNextCreation(0x12);
    EXPECT_EQ(bot.Create("mine"), "");
    EXPECT_EQ(word("nowhere"), "0033");
    stage.network.Levers().SetMaxPeople("r", 5);
    stage.network.Levers().Fill("r");
    EXPECT_EQ(stage.network.People("r").size(), 5u);
    EXPECT_EQ(word("r"), "0018");
    EXPECT_TRUE(stage.Noted("r|other|is not let in: full, with 5 people"));

    auto navigation = bot.Open(0x0D);
    navigation->Ask(0x0D, 2);
    EXPECT_EQ(StrToHex(navigation->Last(0x0D, 9).body.substr(0, 11)), "000200010A000300350004");
    navigation->Ask(0x0D, 3); // of no exchange
    EXPECT_EQ(StrToHex(RawClient::Tlvs(navigation->Last(0x0D, 9), 3).substr(0, 2)), "0000");
    navigation->Ask(0x0D, 4, WordToStr(4) + ShortString("4-0-r"));
    EXPECT_NE(RawClient::Tlvs(navigation->Last(0x0D, 9), 4), "");
    navigation->Ask(0x0D, 8, WordToStr(4) + ShortString("create") + HexToStr("0000010001") + Tlv(0xD3, " "),
                    3);
    EXPECT_EQ(StrToHex(navigation->Last(0x0D, 1).body), "000D000800020033");
}

TEST(Room, EmptyRoomsGiveWayOthersDoNot) {
    PracticeOptions options;
    options.maxRooms = 2;
    options.maxConnections = 12;
    PracticeStage stage(options);
    Guest bot(stage, "Bot");
    bot.Join("kept");
    EXPECT_NE(bot.Create("one"), "");
    EXPECT_NE(bot.Create("two"), "");
    EXPECT_EQ(stage.network.Owner("one"), "");
    EXPECT_TRUE(stage.network.IsInRoom("kept", "bot"));
    Guest other(stage, "other");
    other.Join("two");
    EXPECT_EQ(other.Create("three"), "");
    EXPECT_TRUE(stage.Noted("three|other|is refused a new room: full, with 2 rooms"));
    std::deque<RawClient> crowd;
    while (stage.network.Connections() < 12) crowd.emplace_back(stage);
    EXPECT_TRUE(RawClient(stage).closed);
    EXPECT_TRUE(stage.Noted("|a stranger|is turned away: full, with 12 connections"));
}

} // namespace halyard
