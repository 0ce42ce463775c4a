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
    EXPECT_EQ(Told(room, "000E0002000000000000" +
                             Hex(HexToStr("0004") + MakeTLV("", 1, "4-0-Den") + HexToStr("0003010005") +
                                 MakeTLV("006A", 2, "Den") + MakeTLV("00D1", 2, WordToStr(2000)) +
                                 MakeTLV("00D2", 2, WordToStr(306)))),
              (Lines{"JoinedChat|Den|4|3|2|50|2000|127.0.0.1|2"}));
    EXPECT_EQ(control.Sockets().Tag(2), "[Chat]connected");
    control.JoinChat("Other", 5, 0);
    Settle();
    EXPECT_EQ(navigation.Take().size(), 1U);
    EXPECT_EQ(bos.Take(), Lines{});
    Answer(navigation, "", 4);
    EXPECT_NE(navigation.socket->State(), SocketState::Connected);
}

TEST_F(Wire, LinesComeInAnyPiecesKeepTheirHtmlAndTheLastEncodingHolds) {
    SignOn();
    auto& room = OpenRoom();
    auto line = [](const std::string& inner) {
        return "000E000600000000000000000000000000000003" +
               Hex(MakeTLV("0001", 2, "") + MakeTLV("0003", 2, MakeTLV("", 1, "A nn") + "tail") +
                   MakeTLV("0005", 2, inner));
    };
    auto say = [&](const std::string& inner) { return Told(room, line(inner)); };
    const auto stream = Frame(line(MakeTLV("0001", 2, "one"))) + Frame(line(MakeTLV("0001", 2, "two")));
    for (std::size_t cut = 1; cut < stream.size(); ++cut) {
        for (const auto& piece : {stream.substr(0, cut), stream.substr(cut)})
            room.socket->Send(piece), Settle();
        EXPECT_EQ(events.Take(), (Lines{"ChatMessage|1|A nn|one", "ChatMessage|1|A nn|two"})) << cut;
    }
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
    EXPECT_EQ(Told(room, "000E0004000000000000" + person("B o")),
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
    auto& room = OpenRoom();
    settings.FontHeader = "<F>";
    auto said = [&] {
        Settle();
        return room.Take();
    };
    control.SendChat(1, std::string(232, 'x'));
    auto first = said();
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(first[0].substr(0, 54), "2 000E000500000000000500000000000000000003000100000006");
    EXPECT_EQ(AskedOf(first[0]), "<F>" + std::string(232, 'x'));
    for (int sent = 1; sent <= 32000; ++sent) control.SendChat(1, "x");
    Settle();
    room.received.clear();
    control.SendChat(1, "x");
    EXPECT_EQ(said().back().substr(34, 4), "0001") << "numbers go up to 32000, and on from 1";
    using Case = std::pair<std::string, const char*>;
    for (const auto& [line, lengths] :
         {Case{std::string(233, 'x'), "Current Total Length: 236, Current Total Visible Length: 233"},
          Case{"<" + std::string(2000, 'y') + ">",
               "Current Total Length: 2005, Current Total Visible Length: 0"}}) {
        control.SendChat(1, line);
        EXPECT_EQ(AskedOf(said().at(0)),
                  "<F>" +
                      Replace(control.ChatSends.Item(120), "%d",
                              std::string("Max Total Length: 2000, Max Visible Length: 232, ") + lengths));
    }
    control.Room(1)->MaxMessageLength = 1024;
    control.SendChat(1, std::string(1500, 'x'));
    EXPECT_EQ(AskedOf(said().at(0)), "<F>" + std::string(1500, 'x')); // only rooms of 2000 and 512 have caps

    control.ChatSendOn = false;
    control.SendChat(1, "silent");
    control.SendAllChats(1, "silent");
    control.SendChat(1, "by hand", "manual");
    for (std::int16_t nowhere : {0, 9}) control.SendChat(nowhere, "nowhere", "manual");
    control.SendChat(1, "named", "manual", "D EN", 4);
    const auto byHand = said();
    ASSERT_EQ(byHand.size(), 2U);
    EXPECT_EQ(AskedOf(byHand[0]), "<F>by hand");
    EXPECT_EQ(byHand[1], "2 ");
}

TEST_F(Wire, ALostRoomAndALeftRoom) {
    auto& bos = SignOn();
    auto& first = OpenRoom("One");
    OpenRoom("Two");
    EXPECT_EQ(Told(first, "", 4), (Lines{"LeftChat|One|4|0|1|error"}));
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

TEST_F(Wire, JoinErrorsByTheirWords) {
    auto& bos = SignOn();
    using Case = std::pair<const char*, Lines>;
    for (const auto& [frame, told] :
         {Case{"000100010000000000000018000800020007", {"Error|Unknown Error.|7|0|0018"}},
          // Behind a prefix the body is looked for a byte further on first, then right there.
          Case{"000100018000000000000006AABBCCDDEEFF110018000800020030",
               {"Error|Join chat failed, rated.|48|0|0018"}},
          Case{"000100018000000000000006000100020003000E000800020018",
               {"Error|Join chat failed, full.|24|0|000E"}},
          Case{"000100018000000000000006000100020003000E000900020018", {}},
          Case{"000100010000000000000004000100020008", {}}}) // too little for a word
        EXPECT_EQ(Told(bos, frame), told) << frame;
    control.JoinChat("Den", 4, 0);
    auto& navigation = Redirect("000D");
    EXPECT_EQ(Told(navigation, "000D00010000000000000005000800020033"),
              (Lines{"Error|Join chat failed, invalid chat name.|51|0|0005"}));
    // the value's first word decides
    EXPECT_EQ(Told(navigation, "000D000100000000000000050008000300120000"),
              (Lines{"Error|Join chat failed, you are already in the max amount of chats "
                     "Oscar allows.|18|0|0005"}));
    navigation.Take();
    bos.Take();
    control.JoinChat("Den", -1, 0);
    control.JoinChat("Den", 4, -2);
    Settle();
    EXPECT_EQ(navigation.Take().size() + bos.Take().size(), 0U) << "no word holds a number below zero";
    EXPECT_EQ(events.Take(), Lines(2, "Error|Join chat failed, unknown error.|0|0|000D"));
}

TEST_F(Wire, ARateChangeBehindAPrefix) {
    SignOn();
    auto& room = OpenRoom();
    const std::string figures(56, '0');
    for (const char* body : {"FF00020001", "00020005", ""})
        EXPECT_EQ(
            Told(room, std::string("0001000A8000000000000006000100020003") + body + (*body ? figures : "")),
            *body ? Lines{*body == 'F' ? "Rated|0|Den" : "Rated|1|Den"} : Lines{});
}

TEST_F(Wire, BosFamiliesAreAddedToARoomsVersions) {
    auto& bos = SignOn();
    Answer(bos, "00010005000000000000" + Hex(MakeTLV("000D", 2, HexToStr("000E")) +
                                             MakeTLV("0005", 2, "127.0.0.1") + MakeTLV("0006", 2, "key")));
    auto& room = Last();
    room.Take();
    Answer(room, "0001000300000000000000010003000E");
    EXPECT_EQ(room.Take(), Lines{"2 00010017000000000017"
                                 "0001000400030003000E0001"});
    Answer(room, "0001001800000000000000010004000E0001");
    Answer(bos, "0001000300000000000000090013000A"); // a third has no pair
    room.Take();
    Answer(room, "00010007000000000000");
    EXPECT_EQ(room.Take()[1],
              "2 0001000200000000000100010004001008E5000E0001001008E5" + Hex("00090013") + "001008E5");
}

TEST_F(Wire, ARedirectWithoutAFreeSocketIsTold) {
    auto& bos = SignOn();
    const auto redirect =
        "00010005000000000000" + Hex(MakeTLV("000D", 2, HexToStr("000E")) + MakeTLV("0005", 2, "127.0.0.1"));
    for (int time = 1; time <= 50; ++time) Answer(bos, redirect);
    EXPECT_EQ(control.Sockets().UpperBound(), 50);
    events.Take();
    EXPECT_EQ(Told(bos, redirect),
              Lines{"ConnectionLost|-1|Connection to a service has been lost: all 51 sockets are in use."});
    EXPECT_EQ(peers.size(), 52U);
    EXPECT_TRUE(control.LoggedOn());
}

} // namespace halyard
