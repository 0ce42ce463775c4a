// The main window itself: starting, the menu that slides, the tray, the rate lists.

#include "tests/surface/DeskScene.h"

#include <set>

namespace halyard {

using MainWindow = DeskScene;

TEST(StartUp, StatisticsOfAnotherVersionEndItEarly) {
    SimWorld world;
    SimPlatform machine(world);
    machine.disk.Put("/state/StatsStore.dat", "version:1\r\ntotalopen:9\r\n");
    frmMain window(machine);
    window.Form_Load();
    EXPECT_EQ(machine.disk.Contents("/state/StatsStore.dat"), "\r\n");
    EXPECT_EQ(window.counters.Kept(7), 0);
    EXPECT_NE(machine.desktop.trayTip, "");
}

TEST_F(MainWindow, EveryControlHasItsOwnNameAndTheThemesColours) {
    std::set<std::string> seen;
    window.EachControl([&seen](auto& control) {
        EXPECT_TRUE(seen.insert(control.Name).second) << control.Name;
        EXPECT_NE(control.ForeColor(), 0) << control.Name;
    });
    EXPECT_EQ(boxes.lstOps.BackColor(), 14271955);
    EXPECT_EQ(window.connection.cmdSignOn.BackColor(), 16379850);
    EXPECT_EQ(window.slide.lblContents.BackColor(), 0x5E450E);
    EXPECT_EQ(window.slide.lblMenu[0].ForeColor(), -2147483630);
    EXPECT_EQ(window.slide.lblContents.Caption(), "\r\nC\r\nL\r\nI\r\nC\r\nK\r\n\r\nF\r\nO\r\nR\r\n\r\n"
                                                  "M\r\nE\r\nN\r\nU");
}

TEST_F(MainWindow, TheMenuSlidesInAndStopsWhileMinimised) {
    auto& slide = window.slide;
    std::string popups;
    auto& menus = window.menus;
    for (auto* menu : {&menus.mnuFile, &menus.mnuPanel, &menus.mnuQuickLinks, &menus.mnuHelp})
        menu->onPopup = [&popups, menu] { popups += menu->Name + " "; };
    for (int entry : {0, 1, 2, 3}) slide.lblMenu[static_cast<std::size_t>(entry)].Click();
    EXPECT_EQ(popups, "mnuFile mnuPanel mnuQuickLinks mnuHelp ");
    slide.lblContents.Click();
    EXPECT_FALSE(slide.lblContents.Visible());
    Wait(.01);
    EXPECT_EQ(window.form.Width(), 7545 + 10 * 40);
    EXPECT_EQ(slide.FrameContents.BackColor(), 0x8D0014 | 44 << 8); // 30 and nine steps of 1.5, to even
    Wait(.001);
    EXPECT_EQ(slide.FrameContents.BackColor(), 0x8D0014 | 45 << 8);
    window.form.SetState(WindowState::Minimized);
    Wait(.1);
    EXPECT_EQ(window.form.Width(), 7545 + 11 * 40);
    window.menus.mnuShow.Click();
    Wait(.1);
    EXPECT_EQ(window.form.Width(), 9305);
    EXPECT_EQ(slide.FrameContents.BackColor(), 9266964);
    slide.lblMenu[4].Click();
    slide.lblContents.Click();
    Wait(.02);
    slide.lblMenu[4].Click();
    Wait(.1);
    EXPECT_EQ(window.form.Width(), 7545);
    EXPECT_TRUE(slide.lblContents.Visible());
}

TEST_F(MainWindow, TheTrayBringsItBack) {
    int popups = 0;
    window.menus.mnuSystemTray.onPopup = [&popups] { ++popups; };
    const auto tray = [this](int message) { window.Form_MouseMove(0, 0, message, 0); };
    for (int message : {515, 516, 512}) tray(message); // while it is seen
    EXPECT_EQ(popups, 0);
    for (int message : {514, 517}) tray(message);
    EXPECT_EQ(popups, 2);
    window.form.SetState(WindowState::Minimized);
    EXPECT_FALSE(window.form.Visible());
    tray(516);
    EXPECT_EQ(popups, 3);
    tray(515);
    EXPECT_TRUE(window.form.Visible());
    EXPECT_EQ(window.form.State(), WindowState::Normal);
    machine.desktop.tray = false;
    window.form.SetState(WindowState::Minimized);
    EXPECT_TRUE(window.form.Visible()); // it could not be brought back
}

TEST_F(MainWindow, ExitsAndPages) {
    window.menus.mnuExit.Click();
    EXPECT_EQ(machine.desktop.quits, 1);
    window.reconnection.LoggedIn(std::string(40, 'x')); // a tip holds 63 characters
    EXPECT_EQ(machine.desktop.trayTip, "Halyard 2.0 (Beta 1.0) [User: " + std::string(33, 'x'));
    window.menus.mnuExit2.Click();
    EXPECT_EQ(machine.desktop.quits, 2);
    EXPECT_EQ(machine.desktop.trayTip, "");
    window.menus.mnuHelpFile.Click();
    machine.disk.Put("/program/Halyard_Help.htm", "help");
    window.menus.mnuHelpFile.Click();
    EXPECT_EQ(machine.desktop.pages,
              (Lines{"https://halyard.home.arpa/Halyard_Help.htm", "/program/Halyard_Help.htm"}));
}

TEST_F(MainWindow, RatedRoomsAreListedUntilTheyAreFree) {
    auto& rates = window.rates;
    Set(boxes.chkABOnUnrate, true);
    Type(window.autobans.txtAddAB, "spam*");
    const auto limit = [this](const char* minutes) {
        boxes.txtUnrate.SetText(minutes);
        boxes.txtUnrate.LostFocus();
    };
    limit("5");
    SignOn();
    Join("Lobby");
    people.Enter("lobby", "spammer1");
    Wait(10);
    Start();
    people.SetRate("lobby", "harbourbot", 1, RateCode::Limit);
    Wait(1);
    EXPECT_EQ(Listed(rates.lstRated[0]), Lines{"lobby"});
    EXPECT_EQ(window.form.Height(), 7800);
    people.SetRate("lobby", "harbourbot", 1, RateCode::None);
    Wait(65);
    limit("1");
    Wait(40);
    EXPECT_EQ(Listed(rates.lstRated[0]), Lines{});
    EXPECT_EQ(window.form.Height(), 6810);
    EXPECT_EQ(Happened("1 . 5 minutes has passed").size(), 2U); // by the room and by the window, on purpose
    EXPECT_EQ(Happened("bans spammer1").size(), 1U);

    control.Chat.Item(1)->RateNotice(3, 5);
    control.Chat.Item(1)->RateNotice(3, 1);
    EXPECT_EQ(Listed(rates.lstRated[1]), Lines{"lobby"});
    control.Chat.Item(1)->RateNotice(5, 1);
    for (auto& list : rates.lstRated) list.Clear();
    rates.ListRatedRooms();
    EXPECT_EQ(Listed(rates.lstRated[1]), Lines{"lobby"}) << "of the class that talks, the other being free";
    control.Chat.Item(1)->RateNotice(3, 1);
    rates.lstRated[1].DblClick(); // nothing is selected
    rates.lstRated[1].Select(0);
    rates.lstRated[1].DblClick();
    EXPECT_FALSE(control.Chat.Item(1)->IsRated(5));
    EXPECT_EQ(window.form.Height(), 7800);
    Start();
    rates.lstRated[0].Select(0);
    rates.lstRated[0].DblClick();
    Wait(1);
    EXPECT_EQ(window.form.Height(), 6810);
    EXPECT_EQ(Happened("manually re-enabled").size(), 1U);
}

} // namespace halyard
