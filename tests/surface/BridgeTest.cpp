// The bridge over the whole bot: networks that are chosen and kept, sign-ons that are refused, what is told.

#include "surface/bridge/Bridge.h"

#include "base/Text.h"
#include "tests/surface/DeskScene.h"

namespace halyard {
namespace {

constexpr const char* Toml = "/config/bridge.toml";
constexpr const char* Den = "[networks.Den]\nhosts = [\"den.home.arpa\", \"127.0.0.1\"]\nsalt = \"brine\"\n";

class BridgeScene : public DeskScene {
  protected:
    BridgeScene() {
        machine.disk.Put(Toml, Den);
        bridge.Start();
    }

    Bridge bridge{window};

    std::string State() const { return bridge.row.lblNetworkState.Caption(); }
    bool StateHas(const std::string& part) const { return State().find(part) != std::string::npos; }
    void Choose(const std::string& network) {
        const auto& names = bridge.row.cmbNetwork.Items();
        const auto at = std::find(names.begin(), names.end(), network);
        ASSERT_NE(at, names.end()) << network;
        bridge.row.cmbNetwork.Select(static_cast<int>(at - names.begin()));
    }
    void Load(const std::string& path) {
        machine.dialogs.AnswerText(path);
        window.other.cmdLoadSettings.Press();
    }
    void Save(const std::string& path) {
        machine.dialogs.AnswerText(path);
        window.other.cmdSaveSettings.Press();
    }
    std::string Status() const { return window.connection.lblConnectionInfo.Caption(); }
};

TEST_F(BridgeScene, KeepsANetworkForAFileAndItsAccount) {
    const auto laidDown = boxes.cmbServer.Items();
    Save("/program/harbour.hys");
    const auto bytes = machine.disk.Contents("/program/harbour.hys");
    Choose("Den");
    EXPECT_EQ(control.Secrets.salt, "brine");
    EXPECT_EQ(boxes.cmbServer.Items().size(), laidDown.size() + 2);
    EXPECT_EQ(boxes.cmbServer.Items().back(), "127.0.0.1");
    EXPECT_EQ(boxes.cmbServer.Text(), laidDown.front());
    EXPECT_EQ(machine.disk.Contents("/program/harbour.hys"), bytes);
    EXPECT_EQ(machine.disk.Contents(Toml).substr(0, std::string(Den).size()), Den);

    machine.disk.Put("/program/other.hys", bytes);
    Load("/program/other.hys");
    EXPECT_EQ(bridge.row.cmbNetwork.Text(), LaidDownNetwork);
    EXPECT_EQ(control.Secrets.salt, DefaultSecrets().salt);
    EXPECT_EQ(boxes.cmbServer.Items(), laidDown);
    Load("/program/harbour.hys");
    EXPECT_EQ(bridge.row.cmbNetwork.Text(), "Den");
    boxes.txtSN.SetText("Somebody Else"); // typed: nothing is looked up
    EXPECT_EQ(bridge.row.cmbNetwork.Text(), "Den");

    Bridge anew(window);
    anew.Start();
    EXPECT_EQ(anew.row.cmbNetwork.Text(), "Den") << "the last choice, without a file";
}

TEST_F(BridgeScene, HoldsForTheNextSignOn) {
    SignOn();
    Choose("Open server");
    EXPECT_EQ(control.Secrets.salt, DefaultSecrets().salt);
    EXPECT_FALSE(control.Departs(Departure::OneServiceRequest));
    EXPECT_EQ(State(), "Open server holds from the next sign-on.");
    EXPECT_EQ(Status(), "Online!");
    window.connection.cmdSignOff.Press();
    Wait(1);
    SignOn();
    EXPECT_TRUE(control.Departs(Departure::OneServiceRequest));
    EXPECT_EQ(State(), "");
}

TEST_F(BridgeScene, RefusesANetworkThatIsNoLongerDefined) {
    Choose("Den");
    Set(boxes.chkAutoLogin, true);
    SignOn();
    machine.disk.Put(Toml, "[networks.Den]\nport = 0\n");
    bridge.window.ShowAt(NetworkWindow::Ways);
    bridge.window.cmdReadAgain.Press();
    EXPECT_NE(bridge.window.txtProblems.Text().find("line 2, column "), std::string::npos);
    EXPECT_EQ(bridge.row.cmbNetwork.Text(), "Den (not defined)");
    Boxes();
    people.Drop("harbourbot");
    Wait(60);
    EXPECT_TRUE(StateHas("Not signed on: The network \"Den\" is no longer defined."));
    EXPECT_EQ(window.counters.lblStat[19].Caption(), "0") << "no attempt was made";
    EXPECT_EQ(Boxes(), Lines{}) << "the way back asks nobody";
    EXPECT_EQ(bridge.foot.lstTold.ListCount(), 1) << "told once, not at each try";

    window.connection.cmdSignOff.Press();
    window.connection.cmdSignOn.Press();
    EXPECT_EQ(Boxes(), Lines{"Note: The network \"Den\" is no longer defined. Choose or define one."});
    EXPECT_TRUE(window.connection.cmdSignOn.Enabled());
    Choose(LaidDownNetwork);
    SignOn();
    EXPECT_EQ(State(), "");
}

TEST_F(BridgeScene, AsksBeforeAPasswordGoesOutReversible) {
    const auto tries = [this](bool yes) {
        if (yes) machine.dialogs.AnswerYes();
        window.connection.cmdSignOn.Press();
        Wait(5);
        const bool online = window.connection.SignedOn;
        if (online) window.connection.cmdSignOff.Press();
        Wait(1);
        return std::pair(online, Boxes().size());
    };
    Set(boxes.chkMD5Login, false);
    EXPECT_EQ(tries(false), std::pair(true, std::size_t{0}));
    EXPECT_TRUE(StateHas("whoever listens on the way can reverse"));
    Choose("Open server");
    EXPECT_EQ(tries(false), std::pair(true, std::size_t{0})) << "this machine itself";
    EXPECT_EQ(State(), "");
    boxes.cmbServer.SetText("Den.Home.Arpa");
    EXPECT_EQ(tries(false), std::pair(false, std::size_t{1}));
    EXPECT_TRUE(StateHas("Not signed on"));
    EXPECT_EQ(tries(true), std::pair(true, std::size_t{1}));
    EXPECT_EQ(tries(false), std::pair(true, std::size_t{0})) << "asked once a network and host";
    Choose("Classic salt");
    EXPECT_EQ(tries(false), std::pair(false, std::size_t{1}));

    Set(boxes.chkMD5Login, true);
    Start();
    window.connection.cmdSignOn.Press();
    Set(boxes.chkMD5Login, false); // before the service has said hello
    Wait(5);
    EXPECT_EQ(Happened("signs on"), Lines{});
    EXPECT_TRUE(StateHas("MD5 was switched off in between"));
    EXPECT_TRUE(window.connection.cmdSignOn.Enabled());
}

TEST_F(BridgeScene, SaysWhatARefusalMeansBesideTheLaidDownText) {
    Choose("Classic salt");
    people.RefuseNextSignOn(5);
    window.connection.cmdSignOn.Press();
    Wait(1);
    EXPECT_EQ(Status(), "Sending Login Information...");
    EXPECT_TRUE(StateHas("The password is not this name's."));
    EXPECT_TRUE(StateHas("that of Laid down, Den differs")) << State();
    Set(boxes.chkMD5Login, false);
    people.RefuseNextSignOn(5);
    window.connection.cmdSignOn.Press();
    Wait(1);
    EXPECT_FALSE(StateHas("salt")) << "nothing was hashed";
    Set(boxes.chkMD5Login, true);
    SignOn();
    EXPECT_EQ(State(), "");

    people.RefuseNextJoin(0x18);
    boxes.txtChat.SetText("lobby");
    window.chats.cmdJoinChat.Press();
    Wait(3);
    EXPECT_TRUE(StateHas("The room is full.")) << State();
    bridge.heard.RoomRefused(0x14, "000D", "Join chat failed, unknown error.");
    EXPECT_TRUE(StateHas("no public room"));
    bridge.heard.RateTold(1, 3, 5);
    EXPECT_TRUE(StateHas("lets no more through"));
    bridge.heard.SignedOffElsewhere(1, "http://home.arpa/\r\nwhy");
    EXPECT_TRUE(StateHas("signed on elsewhere"));
    EXPECT_TRUE(bridge.foot.lblFoot.Caption().ends_with("http://home.arpa/  why"));
}

TEST_F(BridgeScene, TellsForTenSecondsAndKeepsTheLast) {
    bridge.foot.Tell("one\ntwo");
    EXPECT_EQ(bridge.foot.lblFoot.Caption(), "one two");
    Wait(9);
    bridge.foot.Tell("three");
    Wait(9.5);
    EXPECT_EQ(bridge.foot.lblFoot.Caption(), "three");
    Wait(1);
    EXPECT_EQ(bridge.foot.lblFoot.Caption(), "");
    for (int line = 0; line < 250; ++line) bridge.foot.Tell(std::to_string(line));
    EXPECT_EQ(bridge.foot.lstTold.ListCount(), 200);
    EXPECT_EQ(bridge.foot.lstTold.List(199), "0:00:19  249");
    bridge.foot.lblFoot.Click();
    EXPECT_EQ(windows.lines.back(), "show frmNetwork");
    EXPECT_TRUE(bridge.window.FrameOf(NetworkWindow::Told).Visible());
}

TEST_F(BridgeScene, KeepsTheTermsOfTheChosenNetworkAlone) {
    auto& page = bridge.window.management;
    Choose("Den");
    bridge.window.ShowAt(NetworkWindow::Management);
    page.txtAddress.SetText("127.0.0.1:9090");
    page.chkEnforce.SetValue(1);
    Choose("Open server"); // leaves them, as the button would
    EXPECT_EQ(page.chkEnforce.Value(), 0);
    EXPECT_TRUE(bridge.file.Management("Den").enforce);
    EXPECT_EQ(bridge.enforcement.Terms(), ManagementTerms{}) << "nobody has signed on there";
    Choose("Den");
    SignOn();
    EXPECT_TRUE(bridge.enforcement.Terms().enforce);
    page.chkEnforce.SetValue(0);
    page.cmdApply.Press();
    EXPECT_FALSE(bridge.enforcement.Terms().enforce);
    machine.disk.Put(Toml, Replace(machine.disk.Contents(Toml), "9090", "7070"));
    bridge.window.cmdReadAgain.Press();
    EXPECT_EQ(page.txtAddress.Text(), "127.0.0.1:7070") << "what the boxes held must not overwrite it";
    EXPECT_EQ(bridge.enforcement.Terms().address, "127.0.0.1:7070");

    page.AddSuspect(3, "bob", "eve");
    page.lstSuspects.Select(0);
    EXPECT_TRUE(page.cmdBanSuspect.Enabled());
    bridge.heard.RoomEntered(3, "deck", 4); // the slot is another room's by now
    EXPECT_FALSE(page.cmdBanSuspect.Enabled());
}

TEST_F(BridgeScene, ChecksANetworkAndGivesWayToTheBot) {
    auto& page = bridge.window.check;
    page.txtCheckRoom.SetText("lobby");
    page.cmdStartCheck.Press();
    Wait(120);
    EXPECT_EQ(page.lblCheckState.Caption(), "Done.");
    EXPECT_GT(page.lstCheck.ListCount(), 5);
    EXPECT_TRUE(StateHas("this server checks no passwords")) << State();
    machine.dialogs.AnswerText("/program/check.txt");
    page.cmdSaveHexLog.Press();
    EXPECT_NE(machine.disk.Contents("/program/check.txt").find("0017 0002"), std::string::npos);
    page.cmdStartCheck.Press();
    SignOn();
    EXPECT_EQ(page.lblCheckState.Caption(), "Stopped: the bot itself signs on.");
    EXPECT_TRUE(StateHas("checks no passwords"));
}

} // namespace
} // namespace halyard
