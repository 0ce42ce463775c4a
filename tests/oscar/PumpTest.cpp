// Frames out of a stream that comes in any pieces, and the numbers of those that go out.

#include "tests/oscar/Wire.h"

namespace halyard {

namespace {
std::string Line(const std::string& text) {
    return Frame("000E000600000000000000000000000000000003" +
                 Hex(MakeTLV("0003", 2, MakeTLV("", 1, "Ann") + HexToStr("00000000")) +
                     MakeTLV("0005", 2, MakeTLV("0001", 2, text))));
}
} // namespace

TEST_F(Wire, AStreamCutAnywhereLosesNothing) {
    SignOn();
    auto& room = OpenRoom();
    auto stream = Line("one") + Line("two");
    for (std::size_t cut = 1; cut < stream.size(); ++cut) {
        room.socket->Send(stream.substr(0, cut));
        Settle();
        room.socket->Send(stream.substr(cut));
        Settle();
        EXPECT_EQ(events.Take(), (Lines{"ChatMessage|1|Ann|one", "ChatMessage|1|Ann|two"})) << cut;
    }
}

TEST_F(Wire, AnUnfinishedFrameDiesWithItsConnection) {
    auto& bos = SignOn();
    bos.socket->Send(Line("x").substr(0, 20));
    Settle();
    bos.socket->Close();
    Settle();
    EXPECT_EQ(events.Take(), (Lines{"ConnectionLost|0|Connection to the admin server has been lost."}))
        << "an unused admin slot is 0, like the socket";
    SignOn();
    EXPECT_TRUE(control.LoggedOn());
}

TEST_F(Wire, SequenceNumbersRunOnThroughEverythingAndWrapAt65536) {
    auto next = [this](Peer& peer, int index) {
        peer.received.clear();
        control.SendPacket(index, 5, "");
        Settle();
        return StrToWord(peer.received.substr(2)).value();
    };
    control.SendPacket(0, 2, "lost"); // not connected: the number is used up
    EXPECT_EQ(next(SignOn(), 0), 6) << "one lost, one to auth, four to finish";
    for (int n = 0; n < 70000; ++n) control.SendPacket(1, 2, "");
    EXPECT_NEAR(next(OpenRoom(), 1), 70000 - 65536 + 10, 9);
    control.SendPacket(0, 2, std::string(65536, 'x'));
    control.SendPacket(99, 2, "x");
    Settle();
}

} // namespace halyard
