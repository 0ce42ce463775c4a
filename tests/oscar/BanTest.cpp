// Ban requests, what their replies lead to, time bans, and people on BOS.

#include "tests/oscar/Wire.h"

namespace halyard {

namespace {

class BanWire : public Wire {
  protected:
    BanWire() {
        SignOn();
        room = &OpenRoom();
    }
    /// Answers the last request with this body; the lines said and the requests made since.
    void Reply(int id, const std::string& hexBody = "0000") {
        room->Send("000E000100000000" + Hex(WordToStr(id)) + hexBody);
        Settle();
    }
    /// What was sent: "ban id name", "unban id name", or the text of a line.
    Lines Sent() {
        Settle();
        Lines lines;
        for (const auto& frame : room->Take()) {
            auto bytes = HexToStr(frame.substr(2));
            auto key = SnacKey(bytes);
            auto id = std::to_string(StrToWord(Mid(bytes, 9, 2)).value_or(0));
            if (key == "000E0024") lines.push_back("ban " + id + " " + Mid(bytes, 15));
            if (key == "000E0025") lines.push_back("unban " + id + " " + Mid(bytes, 15));
            if (key == "000E0005") lines.push_back(bytes.substr(bytes.find("\xAB")));
        }
        return lines;
    }
    Peer* room = nullptr;
};

} // namespace

TEST_F(BanWire, EveryKindOfReplyDoesWhatItsKindSays) {
    struct Case {
        const char* type;
        const char* said;
        bool ejects;
    };
    control.sngBanPause = 0.001F;
    int id = 1;
    for (const auto& [type, said, ejects] : std::vector<Case>{
             {"ban", "\xAB Banned: bob, Bans: 1 \xBB", true},
             {"gban", "\xAB Gbanned: bob, Bans: 1 \xBB", true},
             {"ab", "\xAB Auto Banned: bob, matches: why, Bans: 1 \xBB", true},
             {"aw", "\xAB Word Banned: bob, matches: why, Bans: 1 \xBB", true},
             {"autogban", "", true},
             {"char", "\xAB Char Banned: bob, Bans: 1 \xBB", true},
             {"icq", "\xAB ICQ Banned: bob, Bans: 1 \xBB", true},
             {"nonsense", "", false},
         }) {
        control.BanUser("bob", type, 1, "why");
        EXPECT_EQ(Sent(), (Lines{"ban " + std::to_string(id) + " bob"})) << type;
        Reply(id);
        EXPECT_EQ(Sent(), said[0] != '\0' ? Lines{said} : Lines{}) << type;
        EXPECT_EQ(control.RequestIDs.Count(), 0U);
        EXPECT_EQ(control.GetEjectList("DEN", 1).Count(), ejects ? 1U : 0U) << type;
        world.RunFor(20000);
        control.UnbanUser("bob", "unbankick", 1);
        Reply(++id);
        EXPECT_EQ(control.GetEjectList("den", 1).Count(), 0U);
        Sent();
        ++id;
    }
}

TEST_F(BanWire, AKickIsABanAndAnUnbanAndLeavesNoTrace) {
    control.BanUser("bob", "kick", 1);
    Reply(1);
    EXPECT_EQ(Sent(), (Lines{"ban 1 bob", "unban 2 bob", "\xAB Kicked: bob, Bans: 0 \xBB"}));
    Reply(2);
    EXPECT_EQ(Sent(), Lines{});
    EXPECT_EQ(control.EjectLists.Count(), 0U);
    events.Take();
    Reply(2); // nobody asked any more
    Reply(77);
    EXPECT_EQ(events.Take(), Lines{});
}

TEST_F(BanWire, RefusalsAreTold) {
    control.BanUser("bob", "ban", 1);
    Reply(1, "0008"
             "0004"
             "00000048");
    EXPECT_EQ(Sent(), (Lines{"ban 1 bob", "\xAB Error: Ownership not acquired \xBB"}));
    world.RunFor(12000);
    control.UnbanUser("ann", "unban", 1);
    Reply(2, "0008"
             "0004"
             "00000049");
    EXPECT_EQ(Sent(), (Lines{"unban 2 ann", "\xAB Error: Cannot ban room owner \xBB"}));
    world.RunFor(12000);
    control.BanUser("cy", "ban", 1);
    Reply(3, "0008"
             "0004"
             "00000050");
    EXPECT_EQ(Sent(), (Lines{"ban 3 cy"}));
    EXPECT_EQ(control.RequestIDs.Count(), 0U);
    EXPECT_EQ(control.EjectLists.Count(), 0U);
}

TEST_F(BanWire, IdsAreSpentByQueuedBansTooAndWrapBehind65535) {
    control.CurrentRequestID = 65534;
    control.BanUser("a", "ban", 1);
    control.BanUser("b", "ban", 1); // waits: its id is fixed now
    control.BanUser("c", "ban", 1);
    EXPECT_EQ(control.RequestIDs.Count(), 1U);
    EXPECT_EQ(control.CurrentRequestID, 2);
    world.RunFor(5000);
    EXPECT_EQ(Sent(), (Lines{"ban 65534 a", "ban 65535 b", "ban 1 c"}));
    EXPECT_EQ(control.RequestIDs.Item("65535"), "ban:1:65535:b:");
    control.CloseChat(0);
    control.CloseChat(1);
    Settle();
    EXPECT_EQ(room->Take(), (Lines{"2 000E0023000000000023"
                                   "00230004" +
                                   Hex("Chat")}));
}

TEST_F(BanWire, ATimeBanOfOneMinuteLiftsItselfAfter62Seconds) {
    control.TbanUser("bob", "Den", 4, 0, 1, 1);
    Reply(1);
    control.TbanUser("B ob", "d en", 4, 0, 9, 1);
    world.RunFor(10000);
    EXPECT_EQ(Sent(), (Lines{"ban 1 bob", "\xAB Time banned: bob for 1 minutes, Bans: 1\xBB",
                             "\xAB B ob is already on time ban \xBB"}));
    auto start = world.Now();
    ASSERT_TRUE(world.RunUntil([this] { return control.TimeBans.Count() == 0; }, 120000));
    EXPECT_NEAR(static_cast<double>(world.Now() - start) + 10000, 62000, 200);
    EXPECT_EQ(Sent(), (Lines{"\xAB 1 minutes passsed, bob has been unbanned \xBB", "unban 2 bob"}));
    Reply(2);
    EXPECT_EQ(control.GetEjectList("den", 1).Count(), 0U);
    EXPECT_FALSE(control.Timers().TimeBanTimer()->Enabled());
}

TEST_F(BanWire, AListOutlivesItsRoomAndStaysOfItsExchange) {
    control.BanUser("bob", "ban", 1);
    Reply(1);
    control.LeaveChat(1);
    OpenRoom("D en");
    EXPECT_EQ(control.Chat.Item(1)->EjectListIndex, 1);
    control.Chat.Item(1)->Exchange = 5;
    control.Chat.Item(1)->EjectListIndex = 0;
    room = peers.back().get();
    control.BanUser("ann", "ban", 1);
    Reply(2);
    EXPECT_EQ(control.EjectLists.Count(), 2U);
    EXPECT_EQ(control.Chat.Item(1)->EjectListIndex, 2);
    control.RemoveEjectList("den");
    EXPECT_EQ(control.EjectLists.Count(), 1U);
    EXPECT_EQ(control.EjectLists.Item(1)->Exchange, 5);
}

TEST_F(BanWire, PeopleOnBos) {
    auto& bos = *peers[1];
    bos.Send(
        "00040007000000000000"
        "0000000000000000"
        "0001" +
        Hex(MakeTLV("", 1, "Ann") +
            HexToStr("0000"
                     "0001"
                     "000100020010") +
            MakeTLV("0002", 2,
                    MakeTLV("0501", 2, "\x01") + MakeTLV("0101", 2, HexToStr("00000000") + "<B>hi</B>"))));
    bos.Send("00040007000000000000"
             "0000000000000000"
             "0002"
             "03416E6E"); // another channel
    bos.Send("00020006000000000000" +
             Hex(MakeTLV("", 1, "Ann") + WordToStr(105) + WordToStr(3) + MakeTLV("0001", 2, WordToStr(16)) +
                 MakeTLV("000F", 2, LongToStr(150)) + MakeTLV("0003", 2, LongToStr(1000)) +
                 MakeTLV("0001", 2, "text/plain") + MakeTLV("0002", 2, "me")));
    bos.Send("00040001000000000000"
             "0004");
    bos.Send("00040001000000000000"
             "0005");
    Settle();
    EXPECT_EQ(events.Take(),
              (Lines{"InstantMessage|Ann|hi|1", "IncomingUserInfo|Ann|10|2|1000|16|text/plain|me",
                     "Error|User not available|4|0|0004"}));
    control.GettingUserInfo = true;
    control.strUserInfo = "Zed";
    bos.Send("00020001000000000000"
             "0005");
    Settle();
    EXPECT_TRUE(control.GettingUserInfo);
    bos.Send("00020001000000000000"
             "0004");
    Settle();
    EXPECT_FALSE(control.GettingUserInfo);
    EXPECT_EQ(Sent(), (Lines{"\xAB User Info: Zed --- Buddy info not available \xBB"}));

    bos.Take();
    control.SendIM("Ann", "yo");
    control.GetUserInfo("Ann");
    control.SetPrivacy(1, 4);
    Settle();
    EXPECT_EQ(bos.Take(), (Lines{"2 0004000600000000000400000000000000010001"
                                 "03416E6E"
                                 "00020011"
                                 "05010003010102"
                                 "01010006"
                                 "00000000796F",
                                 "2 00020015000000000015"
                                 "00000000"
                                 "03416E6E",
                                 "2 0013000900000000000900000000"
                                 "0000"
                                 "0004"
                                 "000D"
                                 "00CA000101"
                                 "00CB000400000004"}));
}

} // namespace halyard
