// Into a room, what is said and who is there, and out again.

#include "tests/oscar/Wire.h"

namespace halyard {

TEST_F(Wire, JoiningGoesThroughNavigationOnce) {
    auto& bos = SignOn();
    control.JoinChat(" Den ", 4, 0);
    Settle();
    EXPECT_EQ(bos.Take(), (Lines{"2 00010004000000000001000D"}));
    auto& navigation = Redirect("000D");
    EXPECT_EQ(navigation.Take(),
              (Lines{"2 0001000800000000000800010002000300040005", "2 000D0002000000000002"}));
    Answer(navigation, "000D0009000000000000");
    const auto create =
        "2 000D0008000000000008000406" + Hex("create") + "0000010003" +
        Hex(MakeTLV("00D6", 2, "us-ascii") + MakeTLV("00D3", 2, "Den") + MakeTLV("00D7", 2, "en"));
    EXPECT_EQ(navigation.Take(),
              (Lines{"2 0001000200000000000100010004001008E5000D0001001008E500010004001008E5000E0001001008E5",
                     create}));
    EXPECT_EQ(control.Sockets().Tag(1), "[Chat_Navigation]connected");
    Answer(
        navigation,
        "000D0009000000000000" +
            Hex(MakeTLV("0004", 2, HexToStr("0004") + MakeTLV("", 1, "4-0-Den") + HexToStr("0000020000"))));
    EXPECT_EQ(bos.Take(), (Lines{"2 00010004000000000001000E0001000C000407" + Hex("4-0-Den") + "0000"}));
    auto& room = Redirect("000E");
    EXPECT_EQ(room.Take(), (Lines{"2 0001000800000000000800010002000300040005",
                                  "2 0001000200000000000100010004001008E5000E0001001008E5"}));
    ASSERT_EQ(control.Chat.Count(), 1U);
    EXPECT_TRUE(control.Room(2)->JoinTimerEnabled()) << "the window starts before the information";
    events.Take();
    Answer(room, "000E0002000000000000" +
                     Hex(HexToStr("0004") + MakeTLV("", 1, "4-0-Den") + HexToStr("0003010005") +
                         MakeTLV("006A", 2, "Den") + MakeTLV("00D1", 2, WordToStr(2000)) +
                         MakeTLV("00D2", 2, WordToStr(306))));
    EXPECT_EQ(events.Take(), (Lines{"JoinedChat|Den|4|3|2|50|2000|127.0.0.1|2"}));
    control.JoinChat("Other", 5, 0);
    Settle();
    EXPECT_EQ(navigation.Take().size(), 1U);
    EXPECT_EQ(bos.Take(), Lines{});
}

TEST_F(Wire, LinesKeepTheirHtmlAndTheLastEncodingHolds) {
    SignOn();
    auto& room = OpenRoom();
    auto say = [&](const std::string& inner) {
        Answer(room, "000E000600000000000000000000000000000003" +
                         Hex(MakeTLV("0001", 2, "") + MakeTLV("0003", 2, MakeTLV("", 1, "A nn") + "tail") +
                             MakeTLV("0005", 2, inner)));
        return events.Take();
    };
    EXPECT_EQ(say(MakeTLV("0001", 2, "<B>hi")), (Lines{"ChatMessage|1|A nn|<B>hi"}));
    EXPECT_EQ(say(MakeTLV("0002", 2, "unicode-2-0") + MakeTLV("0001", 2, HexToStr("00680069"))),
              (Lines{"ChatMessage|1|A nn|hi"}));
    EXPECT_EQ(say(MakeTLV("0001", 2, HexToStr("0068"))), (Lines{"ChatMessage|1|A nn|h"}));
    EXPECT_EQ(say(MakeTLV("0002", 2, "us-ascii")), Lines{}) << "no text, no message";
    EXPECT_EQ(say(MakeTLV("0001", 2, HexToStr("006A"))), (Lines{"ChatMessage|1|A nn|" + HexToStr("006A")}));
}

TEST_F(Wire, PeopleComeAndGoAndTheOwnerCountsOnlyAtFirst) {
    SignOn();
    auto& room = OpenRoom();
    auto person = [](const std::string& name) {
        return Hex(MakeTLV("", 1, name) + HexToStr("00000001") + MakeTLV("0001", 2, "xx"));
    };
    room.Send("000E0030000000000000" + Hex("Bot"));
    room.Send("000E0003000000000000" + person("Some User") + person("someuser") + person("Bo"));
    Answer(room, "000E0004000000000000" + person("B o"));
    EXPECT_EQ(events.Take(),
              (Lines{"UpdatedStats|#ofownedchats", "UserJoinedChat|1|Some User", "UserJoinedChat|1|someuser",
                     "UserJoinedChat|1|Bo", "UserLeftChat|1|B o"}));
    EXPECT_EQ(control.Room(1)->PeopleHere.Count(), 1U);
    world.RunFor(2500);
    room.Send("000E0030000000000000" + Hex("Eve"));
    room.Send("000E000300000000000005416EFF"); // lies about its lengths
    Settle();
    EXPECT_FALSE(control.Room(1)->IsOwner());
    EXPECT_EQ(control.Room(1)->GetOwner(), "Eve");
}

TEST_F(Wire, LinesOverTheRoomsCapsAreReplaced) {
    SignOn();
    auto text = [](const std::string& frame) {
        auto at = frame.find("0001", frame.find("656E")); // behind the language
        return HexToStr(frame.substr(at + 8));
    };
    settings.FontHeader = "<F>";
    auto& room = OpenRoom();
    control.SendChat(1, std::string(232, 'x'));
    control.SendChat(1, std::string(233, 'x'));
    control.SendChat(1, "<" + std::string(2000, 'y') + ">");
    Settle();
    auto said = room.Take();
    ASSERT_EQ(said.size(), 3U);
    EXPECT_EQ(said[0].substr(0, 54), "2 000E000500000000000500000000000000000003000100000006");
    EXPECT_EQ(text(said[0]), "<F>" + std::string(232, 'x'));
    EXPECT_EQ(text(said[1]),
              "<F>" + Replace(control.ChatSends.Item(120), "%d",
                              "Max Total Length: 2000, Max Visible Length: 232, Current Total Length: "
                              "236, Current Total Visible Length: 233"));
    EXPECT_NE(text(said[2]).find("Current Total Length: 2005, Current Total Visible Length: 0"),
              std::string::npos);

    control.Room(1)->MaxMessageLength = 1024;
    control.SendChat(1, std::string(1500, 'x'));
    control.ChatSendOn = false;
    control.SendChat(1, "silent");
    control.SendAllChats(1, "silent");
    control.SendChat(1, "by hand", "manual");
    control.SendChat(0, "nowhere", "manual");
    control.SendChat(9, "nowhere", "manual");
    control.SendChat(1, "named", "manual", "D EN", 4);
    Settle();
    said = room.Take();
    ASSERT_EQ(said.size(), 3U);
    EXPECT_EQ(text(said[1]), "<F>by hand");
    EXPECT_EQ(said[2], "2 ");
}

TEST_F(Wire, ALostRoomAndALeftRoom) {
    auto& bos = SignOn();
    auto& first = OpenRoom("One");
    OpenRoom("Two");
    Answer(first, "", 4);
    EXPECT_EQ(events.Take(), (Lines{"LeftChat|One|4|0|1|error"}));
    EXPECT_EQ(control.GetChatIndex(2), 1) << "the position moves up, the slot stays";
    peers[3]->socket->Close();
    Settle();
    EXPECT_EQ(events.Take(),
              (Lines{"LeftChat|Two|4|0|2|error",
                     "ConnectionLost|2|Connection to chat Name: Two, Exchange: 4, Instance: 0 has been "
                     "lost."}));
    OpenRoom("Three");
    control.LeaveChat(-1, "THR ee", 5); // another exchange
    control.LeaveChat(0);
    control.LeaveChat(44);
    EXPECT_EQ(control.Chat.Count(), 1U);
    control.LeaveChat(-1, "THR ee", 4);
    EXPECT_EQ(events.Take(), (Lines{"LeftChat|Three|4|0|1|manual"}));
    EXPECT_EQ(control.Chat.Count(), 0U);
    EXPECT_EQ(bos.socket->State(), SocketState::Connected);
}

TEST_F(Wire, TimersOfRoomsThatAResetDropsAreFreeAgain) {
    for (int round = 0; round < 5; ++round) {
        SignOn();
        OpenRoom("One");
        OpenRoom("Two");
        control.LogOff();
        peers.clear();
    }
    EXPECT_LE(control.Timers().Count(), 17);
}

TEST_F(Wire, JoinErrorsByTheirWords) {
    auto& bos = SignOn();
    auto error = [&](const std::string& flags, const std::string& prefix, const std::string& word) {
        Answer(bos,
               "00010001" + flags + "00000000" + prefix + "0018" + Hex(MakeTLV("0008", 2, HexToStr(word))));
        return events.Take();
    };
    for (const auto& [word, text] : {std::pair{"004A", "Join chat failed, ejected.|74"},
                                     {"0018", "Join chat failed, full.|24"},
                                     {"0007", "Unknown Error.|7"}})
        EXPECT_EQ(error("0000", "", word), Lines{"Error|" + std::string(text) + "|0|0018"});
    EXPECT_EQ(error("8000", "0006AABBCCDDEEFF11", "0030"), Lines{"Error|Join chat failed, rated.|48|0|0018"});
    Answer(bos, "000100010000000000000004000100020008");
    EXPECT_EQ(events.Take(), Lines{});
    control.JoinChat("Den", 4, 0);
    auto& navigation = Redirect("000D");
    Answer(navigation, "000D00010000000000000005" + Hex(MakeTLV("0008", 2, HexToStr("0033"))));
    EXPECT_EQ(events.Take(), (Lines{"Error|Join chat failed, invalid chat name.|51|0|0005"}));
}

} // namespace halyard
