// The way to BOS and through its bring-up, byte for byte.

#include "tests/oscar/Wire.h"

namespace halyard {

namespace {
const std::string Identity =
    Hex(MakeTLV("0003", 2, "AOL Instant Messenger, version 5.5.3599/WIN32") +
        HexToStr("001600020109001700020005001800020005001900020000001A00020E0F001400040000010A") +
        MakeTLV("000F", 2, "en") + MakeTLV("000E", 2, "us"));
} // namespace

TEST_F(Wire, TheHashedDialogueReachesBos) {
    control.Login("My Bot", "secret", 5190, true, false, " 127.0.0. 1 ");
    Settle();
    EXPECT_EQ(control.Sockets().Tag(0), "[Auth]connecting");
    Answer("00000001", 1);
    EXPECT_EQ(Last().Take(), (Lines{"1 00000001", "2 0017000600000000000100010006" + Hex("My Bot")}));
    Answer("001700070000000000000004" + Hex("KEY!"));
    EXPECT_EQ(Last().Take(), (Lines{"2 00170002000000000001" +
                                    Hex(MakeTLV("0001", 2, "My Bot") +
                                        MakeTLV("0025", 2, control.Secrets.Hash("KEY!", "secret"))) +
                                    "004C0000" + Identity + "004A000101"}));
    auto reply =
        "00170003000000000000" + Hex(MakeTLV("0001", 2, "MyBot") + MakeTLV("0005", 2, "127.0.0.1:5190") +
                                     MakeTLV("0006", 2, "biscuit") + MakeTLV("0011", 2, "m@x.home.arpa"));
    // Many services hang up in the same breath; what else comes in it is heard.
    Last().socket->Send(Frame(reply) + Frame("000400010000000000000004") + Frame("", 4));
    Settle();
    ASSERT_EQ(peers.size(), 2U);
    Answer("00000001", 1);
    EXPECT_EQ(Last().Take(), (Lines{"1 00000001" + Hex(MakeTLV("0006", 2, "biscuit"))}));
    EXPECT_EQ(events.Take(),
              (Lines{"LoginStatus|Connecting to Auth server...", "LoginStatus|Sending Ack to Auth Server...",
                     "LoginStatus|Requesting Auth Key...", "LoginStatus|Sending Login Information...",
                     "LoginStatus|Connecting to BOS Server...", "Error|User not available|4|0|0004",
                     "LoginStatus|Sending Ack and Cookie to BOS Server..."}));

    EXPECT_EQ(Told(Last(), "00090003000000000000"),
              (Lines{"LoginStatus|Login Completed!", "LoggedIn|MyBot|m@x.home.arpa|127.0.0.1"}));
    // once more, as after a migration
    EXPECT_EQ(Told(Last(), "00090003000000000000"), (Lines{"LoginStatus|Login Completed!"}));
    world.RunFor(60000);
    EXPECT_EQ(events.Take(), Lines{}) << "the sign-on timer is off";
}

TEST_F(Wire, TheRoastedDialogueAndItsReply) {
    settings.LoginMD5 = false;
    control.Login("Bot", "pw", 5190, false, false, "127.0.0.1");
    Settle();
    Answer("00000001", 1);
    EXPECT_EQ(
        Last().Take(),
        (Lines{"1 00000001" +
               Hex(MakeTLV("0001", 2, "Bot") + MakeTLV("0025", 2, control.Secrets.Roast("pw"))) + Identity}));
    Answer(Hex(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "c")), 4);
    EXPECT_EQ(peers.size(), 2U);
    events.Take();
    Answer(Hex(MakeTLV("0009", 2, "no")), 4); // BOS refuses: not a reply of the auth server's
    world.RunFor(14000);
    EXPECT_EQ(peers.size(), 2U);
    EXPECT_EQ(events.Take(), Lines{});
    world.RunFor(16000);
    EXPECT_EQ(events.Take(), Lines(2, "LoginError|Attempt to connect has timed out.|-1")) << "15 s apart";
    control.LogOff();
    world.RunFor(31000);
    EXPECT_EQ(events.Take(), Lines{"LoggedOff"});
}

TEST_F(Wire, LoginErrorsByCodeAndTheTimerAfterThem) {
    using Case = std::pair<int, std::string>;
    for (const auto& [code, text] :
         {Case{1, "Unregistered screenname."}, Case{5, "The password you entered is not valid."},
          Case{24, "Rate limit exceeded. Please try again later"}, Case{42, "Unknown login error."},
          Case{77, "Unknown Error."}}) {
        for (bool md5 : {true, false}) {
            settings.LoginMD5 = md5;
            control.Login("Bot", "pw", 5190, md5, false, "127.0.0.1");
            Settle();
            auto error = Hex(MakeTLV("0008", 2, WordToStr(code)) + MakeTLV("0006", 2, "late"));
            events.Take();
            md5 ? Answer("00170003000000000000" + error) : Answer(error, 4);
            EXPECT_EQ(events.Take(), Lines{"LoginError|" + text + "|" + std::to_string(code)});
            world.RunFor(15000);
            // Only the hashed dialogue's error stops the timer.
            EXPECT_EQ(events.Take().size(), md5 ? 0U : 1U) << code;
            control.StopLoginTimer();
        }
    }
}

TEST_F(Wire, EachBringUpAnswerLeadsToTheNextRequest) {
    auto& bos = SignOn();
    const std::string versions =
        "0001000400130003000200010003000100040001000600010008000100090001000A0001000B0001";
    for (const auto& [arrives, sends] : std::vector<std::pair<const char*, Lines>>{
             {"0001000300000000000000010002", {"2 00010017000000000001" + versions}},
             {"00010018000000000000", {"2 00010006000000000001"}},
             {"00010007000000000000",
              {"2 0001000800000000000800010002000300040005", "2 0001000E00000000000E",
               "2 00130002000000000002", "2 0013000400000000000D", "2 000200020000000000FE",
               "2 000300020000000000FF", "2 00040004000000000004", "2 00090002000000000009"}},
             {"0004000500000000000000020000000301020304050607080910", {}},
             {"00010013000000000000", {}},
             {"0001000F000000000000", {}},
             {"0001000B000000000000", {"2 0001000C00000000000C00010013000200030004000600080009000A000B"}},
             {"0001000D000000000000", {}}}) {
        Answer(arrives);
        EXPECT_EQ(bos.Take(), sends) << arrives;
    }
    settings.LoginFullCaps = settings.LoginSecureIM = false;
    Answer(bos, "00090003000000000000");
    auto finish = bos.Take();
    ASSERT_EQ(finish.size(), 4U);
    EXPECT_EQ(finish[0], "2 00130007000000000007");
    EXPECT_EQ(finish[1].substr(0, 30), "2 0002000400000000000400050000");
    EXPECT_EQ(finish[2], "2 00040002000000000002000200000000000301020304050607080910")
        << "the first two fields overlap";
    EXPECT_EQ(finish[3].substr(0, 30), "2 0001000200000000000100010004");
    settings.LoginFullCaps = settings.LoginSecureIM = true;
    Collection<std::string> own;
    own.Add("00112233445566778899AABBCCDDEEFF");
    EXPECT_EQ(control.CapabilityBlock(0, own).size(), 18U * 16U);
    EXPECT_EQ(StrToHex(control.CapabilityBlock(1, own)), own.Item(1));
}

TEST_F(Wire, TheServiceListMakesWhatIsMissingAndOnlyThat) {
    auto& bos = SignOn();
    auto item = [](int id, int type, const std::string& block) {
        return HexToStr("00000000") + WordToStr(id) + WordToStr(type) + MakeTLV("", 2, block);
    };
    auto list = [&](const std::string& items) { return "00130006000000000000000002" + Hex(items); };
    Answer(bos, list(MakeTLV("", 2, "someone") + HexToStr("0001000200000000") +
                     item(9, 4, MakeTLV("00CA", 2, "\x03") + MakeTLV("00CC", 2, std::string(4, '\0'))) +
                     item(10, 5, MakeTLV("00C9", 2, HexToStr("FF63E7FF")))));
    EXPECT_EQ(bos.Take(), Lines{});
    EXPECT_EQ(events.Take(), (Lines{"PrivacySettings|3|1|1|1"}));

    control.LogOff();
    SignOn();
    Answer("0013000600000000000000000012345678"); // too little for an item
    auto made = Last().Take();
    ASSERT_EQ(made.size(), 2U);
    EXPECT_EQ(made[0].substr(0, 30), "2 0013000800000000000800000000");
    EXPECT_EQ(made[0].substr(34), "0004001500CC00040000000200CB0004FFFFFFFF00CA000101");
    EXPECT_EQ(made[1].substr(34), "0005000800C90004FF63E7FF");
    EXPECT_EQ(events.Take(), (Lines{"PrivacySettings|1|1|1|0"}));
}

TEST_F(Wire, MigrationMovesBosAndAPauseMakesItsGoodbyeHarmless) {
    auto& bos = SignOn();
    bos.Send("0001000B000000000000");
    bos.Send("000100120000000000000000" + Hex(MakeTLV("0005", 2, "127.0.0.1") + MakeTLV("0006", 2, "new")));
    Answer(bos, "", 4);
    ASSERT_EQ(peers.size(), 3U);
    Answer("00000001", 1);
    EXPECT_EQ(Last().Take(), (Lines{"1 00000001" + Hex(MakeTLV("0006", 2, "new"))}));
    EXPECT_EQ(Told(Last(), "00090003000000000000"), (Lines{"LoginStatus|Login Completed!"}));
    EXPECT_TRUE(control.LoggedOn());
    Answer("", 4); // not paused any more: the service signs the bot off, and no event tells of it
    EXPECT_FALSE(control.LoggedOn());
    EXPECT_NE(Last().socket->State(), SocketState::Connected) << "and hung up";
    EXPECT_EQ(events.Take(), Lines{});
}

} // namespace halyard
