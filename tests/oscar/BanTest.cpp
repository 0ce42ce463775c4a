// Ban requests, what their replies lead to, time bans, and people on BOS.

#include "tests/oscar/Wire.h"

namespace halyard {

class BanWire : public Wire {
  protected:
    BanWire() {
        SignOn();
        room = &OpenRoom();
    }
    /// Answers the last request with this body; the lines said and the requests made since.
    void Reply(int id, const std::string& hexBody = "0000") {
        Answer(*room, "000E000100000000" + Hex(WordToStr(id)) + hexBody);
    }
    /// What was sent: "ban id name", "unban id name", or the text of a line.
    Lines Sent() {
        Settle();
        Lines lines;
        for (const auto& frame : room->Take())
            if (auto asked = AskedOf(frame); !asked.empty()) lines.push_back(asked);
        return lines;
    }
    Peer* room = nullptr;
};

TEST_F(BanWire, EveryKindOfReplyDoesWhatItsKindSays) {
    int id = 0;
    using Case = std::pair<const char*, std::string>;
    for (const auto& [type, said] :
         {Case{"gban", "Gbanned: gban, Bans: 1"}, Case{"ab", "Auto Banned: ab, matches: why, Bans: 2"},
          Case{"aw", "Word Banned: aw, matches: why, Bans: 3"}, Case{"autogban", ""},
          Case{"char", "Char Banned: char, Bans: 5"}, Case{"icq", "ICQ Banned: icq, Bans: 6"},
          Case{"nonsense", ""}}) {
        const auto kind = BanKindOf(type);
        control.BanUser(type, kind.value_or(BanKind::Ban), 1, "why");
        const auto key = std::to_string(++id);
        if (!kind) control.RequestIDs.Remove(key), control.RequestIDs.Add("nonsense:1:1:bob:", key);
        Sent();
        Reply(id);
        EXPECT_EQ(Sent(), said.empty() ? Lines{} : Lines{"\xAB " + said + " \xBB"}) << type;
        world.RunFor(20000);
    }
    EXPECT_EQ(control.GetEjectList("DEN", 1).Count(), 6U);
    EXPECT_EQ(control.RequestIDs.Count(), 0U);
}

TEST_F(BanWire, ATimeBanLiftsItself) {
    control.TbanUser("bob", "Den", 4, 0, 1, 1);
    Reply(1);
    world.RunFor(80000);
    Reply(2);
    EXPECT_EQ(Sent(), (Lines{"ban 1 bob", "\xAB Time banned: bob for 1 minutes, Bans: 1\xBB",
                             "\xAB 1 minutes passsed, bob has been unbanned \xBB", "unban 2 bob"}));
    EXPECT_EQ(control.GetEjectList("den", 1).Count() + control.TimeBans.Count(), 0U);
    EXPECT_FALSE(control.Timers().TimeBanTimer()->Enabled());
}

TEST_F(BanWire, RefusalsAreTold) {
    const std::tuple<const char*, const char*, Lines> cases[] = {
        {"ban", "48", {"\xAB Error: Ownership not acquired \xBB"}},
        {"unban", "49", {"\xAB Error: Cannot ban room owner \xBB"}},
        {"ban", "50", {}}};
    int id = 0;
    for (const auto& [type, word, told] : cases) {
        const auto kind = BanKindOf(type).value();
        kind == BanKind::Ban ? control.BanUser("bob", kind, 1) : control.UnbanUser("bob", kind, 1);
        EXPECT_EQ(Sent(), Lines{type + (" " + std::to_string(++id)) + " bob"});
        Reply(id, std::string("00080004000000") + word);
        EXPECT_EQ(Sent(), told);
        world.RunFor(12000);
    }
    EXPECT_EQ(control.RequestIDs.Count(), 0U);
    events.Take();
    for (int stranger : {id, 77}) Reply(stranger); // nobody asked any more
    EXPECT_EQ(events.Take(), Lines{});
    EXPECT_EQ(control.EjectLists.Count(), 0U);
}

TEST_F(BanWire, IdsAreSpentByQueuedBansTooAndWrapBehind65535) {
    control.CurrentRequestID = 65534;
    control.BanUser("a", BanKind::Ban, 1);
    EXPECT_EQ(control.BanUser("b", BanKind::Ban, 1), BanOutcome::Waiting); // waits: its id is fixed now
    control.BanUser("c", BanKind::Ban, 1);
    EXPECT_EQ(control.RequestIDs.Count(), 1U);
    EXPECT_EQ(control.CurrentRequestID, 2);
    world.RunFor(5000);
    EXPECT_EQ(Sent(), (Lines{"ban 65534 a", "ban 65535 b", "ban 1 c"}));
    EXPECT_EQ(control.RequestIDs.Item("65535"), "ban:1:65535:b:");
    control.CloseChat(0);
    control.CloseChat(1);
    Settle();
    EXPECT_EQ(room->Take(), (Lines{"2 000E002300000000002300230004" + Hex("Chat")}));
}

TEST_F(BanWire, AListOutlivesItsRoomAndStaysOfItsExchange) {
    control.BanUser("bob", BanKind::Ban, 1);
    Reply(1);
    control.LeaveChat(1);
    OpenRoom("D en");
    EXPECT_EQ(control.Chat.Item(1)->EjectListIndex, 1);
    control.Chat.Item(1)->Exchange = 5;
    control.Chat.Item(1)->EjectListIndex = 0;
    room = peers.back().get();
    control.BanUser("ann", BanKind::Ban, 1);
    Reply(2);
    EXPECT_EQ(control.EjectLists.Count(), 2U);
    EXPECT_EQ(control.Chat.Item(1)->EjectListIndex, 2);
    control.Chat.Item(1)->EjectListIndex = 0;
    world.RunFor(20000);
    Sent();
    control.BanUser("cid", BanKind::Ban, 1);
    Reply(3);
    EXPECT_EQ(control.Chat.Item(1)->EjectListIndex, 2) << "found again by name and exchange";
    EXPECT_EQ(control.EjectLists.Item(2)->GetEjects().Count(), 2U);
    EXPECT_EQ(Sent(), (Lines{"ban 3 cid", "\xAB Banned: cid, Bans: 1 \xBB"})) << "counted by name alone";
    control.RemoveEjectList("den");
    EXPECT_EQ(control.EjectLists.Count(), 1U);
    EXPECT_EQ(control.EjectLists.Item(1)->Exchange, 5);
}

TEST_F(BanWire, PeopleOnBos) {
    auto& bos = *peers[1];
    bos.Send(
        "0004000700000000000000000000000000000001" +
        Hex(MakeTLV("", 1, "Ann") + HexToStr("00000001000100020010") +
            MakeTLV("0002", 2,
                    MakeTLV("0501", 2, "\x01") + MakeTLV("0101", 2, HexToStr("00000000") + "<B>hi</B>")) +
            MakeTLV("0002", 2, MakeTLV("0101", 2, HexToStr("00000000") + "a second block"))));
    bos.Send("000400070000000000000000000000000000000203416E6E"); // another channel
    bos.Send("00020006000000000000" +
             Hex(MakeTLV("", 1, "Ann") + WordToStr(105) + WordToStr(3) + MakeTLV("0001", 2, WordToStr(16)) +
                 MakeTLV("000F", 2, LongToStr(150)) + MakeTLV("0003", 2, LongToStr(1000)) +
                 MakeTLV("0001", 2, "text/plain") + MakeTLV("0002", 2, "me")));
    bos.Send("00020006000000000000" + Hex(MakeTLV("", 1, "Bo") + HexToStr("00000000"))); // and nothing more
    bos.Send("000400010000000000000004");
    EXPECT_EQ(Told(bos, "000400010000000000000005"),
              (Lines{"InstantMessage|Ann|hi|1", "IncomingUserInfo|Ann|10|2|1000|16|text/plain|me",
                     "IncomingUserInfo|Bo|0|0|0|||", "Error|User not available|4|0|0004"}));
    control.GettingUserInfo = true;
    control.strUserInfo = "Zed";
    Answer(bos, "000200010000000000000005");
    EXPECT_TRUE(control.GettingUserInfo);
    Answer(bos, "000200010000000000000004");
    EXPECT_FALSE(control.GettingUserInfo);
    EXPECT_EQ(Sent(), (Lines{"\xAB User Info: Zed --- Buddy info not available \xBB"}));

    bos.Take();
    control.SendIM("Ann", "yo");
    control.GetUserInfo("Ann");
    control.SetPrivacy(1, 4);
    Settle();
    EXPECT_EQ(
        bos.Take(),
        (Lines{"2 000400060000000000040000000000000001000103416E6E00020011050100030101020101000600000000796F",
               "2 000200150000000000150000000003416E6E",
               "2 001300090000000000090000000000000004000D00CA00010100CB000400000004"}));
}

TEST_F(BanWire, SomebodyElseConfirms) {
    control.sngBanPause = 0.001F;
    control.Room(1)->SetBanPause(0.001F);
    control.ConfirmElsewhere(true);
    control.RequestIDs.Add("unban:1:1:stale:", "1"); // left from an earlier round of the ids
    for (const char* name : {"bob", "kim", "tim"}) control.BanUser(name, BanKind::Kick, 1), Settle();
    EXPECT_EQ(Sent(), (Lines{"ban 1 bob", "ban 2 kim", "ban 3 tim"}));
    for (const char* no : {"0001", "0008000400000048"}) Reply(1, no), Reply(2, no);
    EXPECT_EQ(Sent(), Lines{});
    EXPECT_EQ(control.RequestIDs.Count(), 3U);
    control.RequestRefused(1);
    for (int id : {1, 2, 2, 77}) control.RequestConfirmed(id);
    EXPECT_EQ(Sent(), Lines{"\xAB Kicked: kim, Bans: 0 \xBB"}) << "and no frame";
    EXPECT_EQ(control.RequestIDs.Count(), 1U);
    events.Take();
    world.RunFor(20000);
    Reply(3); // the service's own yes counts as ever, frame and all
    EXPECT_EQ(Sent(), (Lines{"unban 5 tim", "\xAB Kicked: tim, Bans: 0 \xBB"}));
    control.UnbanUser("bob", BanKind::Unban, 1);
    EXPECT_EQ(control.RequestIDs.Count(), 1U) << "never within the call";
    EXPECT_EQ(Sent(), (Lines{"unban 6 bob"}));
    EXPECT_EQ(control.RequestIDs.Count(), 0U);
    control.BanUser("bob", BanKind::Ban, 1);
    control.LeaveChat(1);
    control.RequestConfirmed(7);
    EXPECT_EQ(control.EjectLists.Count() + control.RequestIDs.Count(), 0U);
}

} // namespace halyard
