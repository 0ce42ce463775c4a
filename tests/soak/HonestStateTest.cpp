// What the window tells its operator of a loss that the bot does not make good by itself.

#include "tests/surface/DeskScene.h"

namespace halyard {
namespace {

void LoseMain(Desk& desk) { desk.people.Drop("harbourbot"); }
void LoseAll(Desk& desk) { desk.world.network.DropAll(); }
void LoseRoom(Desk& desk) { desk.people.DropFromRoom("lobby", "harbourbot"); }
void BeSignedOff(Desk& desk) { desk.people.SignOff("harbourbot"); }
void BeCutOff(Desk& desk) {
    desk.world.network.faults.refuse = 1;
    LoseMain(desk);
}

struct Loss {
    void (*happen)(Desk&);
    bool comesBack; ///< re-connection is on; going back to rooms is off in all
    const char* caption;
    std::size_t rooms; ///< that the bot is in
    Lines listed;
    bool consoleOpen; ///< the room's console takes lines
    const char* last; ///< line of the action log
};

constexpr const char* mainLost = "Connection to main BOS server lost!";
constexpr const char* roomLeft = "Left chat 'lobby', Exchange '4', Instance '0";
constexpr const char* nothing = "User joined in chat 'lobby': Harbour Bot";

// Two minutes later. All of it is settled, also where it tells too little.
TEST(HonestState, AfterALossThatIsNotMadeGood) {
    const Loss losses[] = {
        // The room lives on without the main connection, and only the log tells that this is gone.
        {LoseMain, false, "Online!", 1, {"lobby"}, true, mainLost},
        {LoseAll, false, "Online!", 0, {}, false, roomLeft},
        {LoseRoom, false, "Online!", 0, {}, false, roomLeft},
        // Signed off by the service, the bot is nowhere, and shown where it was.
        {BeSignedOff, true, "Online!", 0, {"lobby"}, true, nothing},
        // Back again but not in its room, which goes from the list without a line in the log.
        {LoseMain, true, "Online!", 0, {}, false, "Logged in!"},
        {BeCutOff, true, "Connecting to Auth server...", 0, {}, false, mainLost},
    };
    for (const auto& loss : losses) {
        SCOPED_TRACE(&loss - losses);
        const bool canSignOn = loss.happen == BeCutOff;
        Desk desk;
        desk.Set(desk.boxes.chkAutoLogin, loss.comesBack);
        desk.SignOn();
        desk.Join("lobby");
        desk.window.consoles.Open("lobby");
        const auto console = desk.window.consoles.Named("lobby");
        loss.happen(desk);
        desk.Wait(120);
        EXPECT_EQ(desk.window.connection.lblConnectionInfo.Caption(), loss.caption);
        EXPECT_EQ(desk.window.connection.cmdSignOn.Enabled(), canSignOn);
        EXPECT_EQ(desk.control.Chat.Count(), loss.rooms);
        EXPECT_EQ(desk.Listed(desk.window.chats.lstChats), loss.listed);
        EXPECT_EQ(desk.LastAction(), loss.last);
        EXPECT_EQ(desk.machine.desktop.trayTip, "Halyard 2.0 (Beta 1.0) [User: Harbour Bot]");
        EXPECT_EQ(console->txtSend.Enabled(), loss.consoleOpen);
        EXPECT_EQ(desk.Boxes(), Lines{});

        desk.world.network.faults.refuse = 0; // the buttons that are left lead back
        desk.window.reconnection.StopReconnections();
        if (!canSignOn) desk.window.connection.cmdSignOff.Press();
        desk.Wait(1);
        EXPECT_FALSE(console->txtSend.Enabled());
        desk.SignOn();
        desk.Join("lobby");
        EXPECT_TRUE(console->txtSend.Enabled());
    }
}

} // namespace
} // namespace halyard
