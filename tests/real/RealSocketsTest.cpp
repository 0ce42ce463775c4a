// The whole bot and the practice network over real sockets, with a relay in between that cuts, stalls and
// resets. Timers run in virtual time that the test moves on; everything else is waited for in the message
// loop.

#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"
#include "tests/platform_qt/Loop.h"
#include "tests/real/Certificates.h"
#include "tests/real/KeeperSpy.h"
#include "tests/real/Relay.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace halyard {
namespace {

/// A machine whose sockets are real, and nothing else.
class Machine : public SimPlatform {
  public:
    Machine(SimWorld& world, QtPlatform& real, Relay& relay) : SimPlatform(world), real(real), relay(relay) {}
    std::unique_ptr<Socket> NewSocket() override { return real.NewSocket(); }
    std::unique_ptr<SocketServer> NewServer() override {
        return std::make_unique<RelayedServer>(relay, real.NewServer());
    }

  private:
    QtPlatform& real;
    Relay& relay;
};

PracticeOptions AnyPort() {
    PracticeOptions options;
    options.port = 0;
    return options;
}

class RealSockets : public testing::Test {
  protected:
    RealSockets() {
        EXPECT_TRUE(network.Start());
        window.Form_Load();
        boxes.txtSN.SetText("Harbour Bot");
        boxes.txtPW.SetText("secret");
        boxes.cmbServer.SetText("127.0.0.1");
        boxes.txtPort.SetText(std::to_string(network.Port()));
        boxes.txtChat.SetText("lobby");
        for (auto* box : {&boxes.chkAutoLogin, &boxes.chkRejoinKick, &boxes.chkRejoinError}) box->SetValue(1);
        label.onView = [this] { said.insert(label.Caption()); };
    }
    void Pass(double seconds) { world.RunFor(static_cast<std::int64_t>(seconds * 1000)); }
    bool OnLine() const { return window.connection.SignedOn && label.Caption() == "Online!"; }
    bool Inside() const {
        return network.IsInRoom("lobby", "harbourbot") && window.chats.lstChats.ListCount() == 1;
    }
    bool AllGone() const { return network.Connections() == 0 && relay.Streams() == 0; }
    void SignOnAndJoin() {
        window.connection.cmdSignOn.Press();
        ASSERT_TRUE(RunUntil([this] { return OnLine(); })) << label.Caption();
        window.chats.cmdJoinChat.Press();
        ASSERT_TRUE(RunUntil([this] { return Inside(); }));
        Pass(3);
    }
    void SignOff() {
        window.connection.cmdSignOff.Press();
        ASSERT_TRUE(RunUntil([this] { return AllGone(); }));
        EXPECT_EQ(label.Caption(), "Offline");
        Pass(5);
    }
    bool Present(const std::string& name) {
        return !window.Control().Chat.Item(1)->PeopleHere.Item(name).empty();
    }
    /// Someone enters, misbehaves and is banned by the op.
    void Ban(const std::string& name) {
        network.Levers().Enter("lobby", name);
        ASSERT_TRUE(RunUntil([&] { return Present(name); }));
        network.Levers().Say("lobby", "opal", "ban " + name);
    }
    bool Listed(const std::string& name) {
        for (const auto& ejected : window.Control().GetEjectList("lobby", 0))
            if (ejected == name) return network.IsBanned("lobby", name);
        return false;
    }
    void ComeBack() {
        ASSERT_TRUE(RunUntil([this] { return AllGone() && window.reconnection.Reconnecting; }));
        Pass(1);
    }

    QtPlatform real;
    SimWorld world;
    Relay relay;
    Machine service{world, real, relay}, machine{world, real, relay};
    PracticeNetwork network{service, AnyPort()};
    frmMain window{machine};
    OptionControls& boxes = window.options.Controls;
    Label& label = window.connection.lblConnectionInfo;
    std::set<std::string> said;
};

TEST_F(RealSockets, BothDialoguesBansStallsAndResets) {
    network.Levers().Enter("lobby", "opal");
    window.Engine().Lists().AddOp("opal", 0, FullPerms);
    window.options.SetPerms("opal", FullPerms);
    for (const int md5 : {0, 1}) {
        boxes.chkMD5Login.SetValue(md5);
        said.clear();
        SignOnAndJoin();
        EXPECT_EQ(said.contains("Requesting Auth Key..."), md5 == 1);
        EXPECT_EQ(said.contains("Sending roasted login..."), md5 == 0);
        const auto rowdy = "rowdy" + std::to_string(md5), late = "late" + std::to_string(md5);
        Ban(rowdy);
        ASSERT_TRUE(RunUntil([&] { return Listed(rowdy); }));
        Pass(9);

        network.Levers().Enter("lobby", late);
        ASSERT_TRUE(RunUntil([&] { return Present(late); }));
        relay.Stall(true);
        network.Levers().Say("lobby", "opal", "ban " + late);
        Pass(40);
        RunPending();
        EXPECT_FALSE(network.IsBanned("lobby", late));
        relay.Stall(false);
        ASSERT_TRUE(RunUntil([&] { return Listed(late); }));

        relay.ResetAll();
        ComeBack();
        ASSERT_TRUE(RunUntil([this] { return OnLine(); })) << label.Caption();
        Pass(1);
        ASSERT_TRUE(RunUntil([this] { return Inside(); }));
        EXPECT_TRUE(Listed(rowdy) && Listed(late));
        SignOff();
    }
    EXPECT_TRUE(machine.dialogs.shown.empty());
}

TEST_F(RealSockets, ASilenceIsKnownByTheQuestionThatNobodyAnswers) {
    Bridge bridge(window);
    bridge.Start();
    GuardTerms terms;
    for (const auto guard : {Departure::SilenceIsAskedAbout, Departure::RoomsAreAskedForAgain})
        terms.Decide(guard, Departures::Guard::On);
    bridge.TakeGuards(terms);
    SignOnAndJoin();
    Pass(15);
    ASSERT_TRUE(
        RunUntil([&] { return bridge.guards.silence.Answering() == 3; })); // BOS, navigation, the room
    relay.Stall(true);
    Pass(110);
    RunPending();
    EXPECT_FALSE(window.reconnection.Reconnecting);
    Pass(40);
    EXPECT_TRUE(window.reconnection.Reconnecting);
    relay.ResetAll();
    relay.Stall(false);
    Pass(1);
    ASSERT_TRUE(RunUntil([this] { return OnLine(); })) << label.Caption();
    Pass(1);
    ASSERT_TRUE(RunUntil([this] { return Inside(); }));
    SignOff();
}

// By the way "tls": the redirects lead to 127.0.0.1, and are checked against the sign-on host's name.
TEST_F(RealSockets, TheWholeWayOverTls) {
    const Authority known("Known");
    const Trust trust(known);
    window.Control().UseNetwork({.name = "Den", .hosts = {}, .ways = WaysOf(Departure::Tls)});
    boxes.cmbServer.SetText("localhost");
    relay.SpeakTls(known.Issue("DNS:localhost"));
    SignOnAndJoin();
    relay.ResetAll();
    ComeBack();
    ASSERT_TRUE(RunUntil([this] { return OnLine(); })) << label.Caption();
    Pass(1);
    ASSERT_TRUE(RunUntil([this] { return Inside(); }));
    SignOff();
}

TEST_F(RealSockets, AHundredVisitsLeaveNothingBehind) {
    auto descriptors = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const KeeperSpy keeper(real);
    const auto& control = window.Control();
    SignOnAndJoin();
    const auto timersInside = control.Timers().Count();
    const auto descriptorsInside = descriptors();
    SignOff();
    const auto timers = control.Timers().Count();
    const auto open = descriptors();
    RunPending();
    const auto objects = keeper.Objects();
    EXPECT_GT(objects, 0);
    EXPECT_LT(open, descriptorsInside);
    for (int visit = 0; visit < 100 && !HasFailure(); ++visit) {
        boxes.chkMD5Login.SetValue(visit % 2);
        SignOnAndJoin();
        EXPECT_EQ(control.Timers().Count(), timersInside);
        SignOff();
    }
    EXPECT_EQ(descriptors(), open);
    RunPending();
    EXPECT_EQ(keeper.Objects(), objects);
    EXPECT_EQ(control.Timers().Count(), timers);
    EXPECT_EQ(control.Sockets().UpperBound(), 0);
    EXPECT_FALSE(network.IsOnLine("harbourbot"));
    EXPECT_EQ(control.Chat.Count() + window.reconnection.RejoinQueue.Count(), 0U);
}

} // namespace
} // namespace halyard
