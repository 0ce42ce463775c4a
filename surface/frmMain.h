#pragma once

// The program's one permanent window, and the root of everything: it owns the protocol control, the options
// and lists, the command engine, the panels and the other windows, and passes on what the control tells.
// Nothing needs to be drawn for it to run.

#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "platform/Hand.h"
#include "state/AutoSave.h"
#include "state/Counters.h"
#include "state/Options.h"
#include "surface/WindowHost.h"
#include "surface/comeback/Reconnection.h"
#include "surface/look/Banners.h"
#include "surface/look/MenuSlide.h"
#include "surface/look/Menus.h"
#include "surface/look/Tray.h"
#include "surface/panels/AutobanPanel.h"
#include "surface/panels/ChatsPanel.h"
#include "surface/panels/ConnectionPanel.h"
#include "surface/panels/EjectListsPanel.h"
#include "surface/panels/OtherPanel.h"
#include "surface/panels/PeoplePanel.h"
#include "surface/panels/RateLists.h"
#include "surface/panels/StatsPanel.h"
#include "surface/windows/Consoles.h"
#include "surface/windows/frmCcoms.h"
#include "surface/windows/frmChatSends.h"
#include "surface/windows/frmCredits.h"
#include "surface/windows/frmIMComs.h"
#include "surface/windows/frmLocks.h"
#include "surface/windows/frmUniPerms.h"

#include <deque>
#include <memory>

namespace halyard {

class frmMain : private TillerEvents, private MainWindowLink, private CommandHost {
  public:
    /// `platform` and `windows` outlive the window. Without `windows` nothing is drawn.
    explicit frmMain(Platform& platform, WindowHost* windows = nullptr);

  private: // made before all that works on it
    Platform& platform;
    WindowHost undrawn;
    OscarSettings settings;
    TillerSock control;

  public:
    Options options;
    Counters counters;

  private:
    CommandEngine engine;
    Banners banners;
    SurfaceContext context;
    Tray tray;
    AutoSave autoSave;
    std::unique_ptr<Timer> tmrTimeout; // gives up on a user-info request

  public:
    Form form{"frmMain", "Halyard"};
    /// The panels; one is visible at a time.
    std::deque<Frame> FrameTabs = Numbered<Frame>("FrameTabs", 0, {"", "", "", "", "", "", ""});
    Menus menus;
    MenuSlide slide;
    RateLists rates;
    ConnectionPanel connection;
    ChatsPanel chats;
    PeoplePanel people;
    AutobanPanel autobans;
    EjectListsPanel ejects;
    StatsPanel stats;
    OtherPanel other;
    Consoles consoles;
    Reconnection reconnection;
    frmCcoms ccomsWindow;
    frmUniPerms uniPermsWindow;
    frmLocks locksWindow;
    frmChatSends chatSendsWindow;
    frmIMComs imComsWindow;
    frmCredits creditsWindow;

    TillerSock& Control() { return control; }
    /// The operator's hand on a control; see platform/Hand.h.
    template <typename Act>
    void ByHand(const halyard::Control& touched, Act&& act) {
        Hand(control.Tell(), touched, std::forward<Act>(act));
    }
    CommandEngine& Engine() { return engine; }
    /// What the panels and windows work on.
    const SurfaceContext& Context() const { return context; }

    // The window's events (FormEvents.cpp, StartUp.cpp).
    void Form_Load();
    void Form_Unload();
    /// Of a mouse over the window, or with `X` as the message number, over the tray icon.
    void Form_MouseMove(int Button, int Shift, int X, int Y);
    /// Hides all panels but this one; 0 to 6.
    void ShowPanel(std::int16_t index);

    /// Every control that the main window shows, the option model's included, menus excepted. It stands in
    /// surface/EachControl.h.
    template <typename Visit>
    void EachControl(Visit&& visit);

  private:
    // StartUp.cpp
    void ApplyTheme();
    // FormEvents.cpp
    void Form_Resize();
    void ShowWindow();
    void OpenHelp();
    void BindMenus();
    void BindFileMenu();
    void BindPopups();

    // Events of the control (Events.cpp).
    void NewEjectList(Text strChatName, std::int16_t intChatIndex) override;
    void AddedEject(Text strUser, std::int16_t intChatIndex, std::int16_t intChatColIndex) override;
    void RemovedEject(Text strUser, std::int16_t intChatIndex, std::int16_t intChatColIndex) override;
    void UpdatedStats(Text strStats) override;
    void LoggedIn(Text strUser, Text strEmail, Text strServerIP) override;
    void LoginStatus(Text strCurrentAction) override;
    void LoginError(Text strDescription, std::int16_t intErrorCode) override;
    void LoggedOff() override;
    void Error(Text strDescription, std::int16_t intErrorCode, std::int16_t intSubErrorCode,
               Text strFamilyDenied) override;
    void ConnectionLost(std::int16_t intSockIndex, Text strDescription) override;
    void JoinedChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                    std::int16_t intChatIndex, std::int16_t intMaxPeople, std::int16_t intMaxMessageLength,
                    Text strChatIP, std::int16_t intDetailLevel) override;
    void LeftChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                  std::int16_t intChatIndex, Text strType) override;
    void UserJoinedChat(std::int16_t intChatIndex, Text strScreenname) override;
    void UserLeftChat(std::int16_t intChatIndex, Text strScreenname) override;
    void ChatMessage(std::int16_t intChatIndex, Text strScreenname, Text strMessage) override;
    void InstantMessage(Text strScreenname, Text strMessage, std::int16_t intChannel) override;
    void IncomingUserInfo(Text strScreenname, std::int16_t intWarningLevel, std::int32_t IdleTimeSeconds,
                          std::int32_t OnlineTimeSeconds, Text strUserClass, Text strEncodingType,
                          Text strProfile) override;

    // What the control asks past the events.
    bool GetAutoUnrate() const override { return options.AutoUnrate; }
    std::int16_t GetUnratePause() const override { return options.UnratePause; }
    void Rated(int intType, Text strChatName) override { rates.Rated(intType, strChatName); }
    void Unrated(int intType, Text strChatName, std::int16_t intChatIndex) override {
        rates.Unrated(intType, strChatName, intChatIndex);
    }

    // What the command engine asks.
    void ConsoleMessage(std::int16_t intChatIndex, Text strUser, Text text) override;
    void AddConsoleUser(std::int16_t intChatIndex, Text strUser) override;
    void RemoveConsoleUser(std::int16_t intChatIndex, Text strUser) override;
    void IncomingIM(Text strUser, Text text) override { imComsWindow.IncomingIM(strUser, text); }
    void LockAdded(LockKind kind, Text name) override { locksWindow.LockAdded(kind, name); }
    void LockRemoved(LockKind kind, Text name) override { locksWindow.LockRemoved(kind, name); }
    void SetUserInfoTimer(bool enabled) override { tmrTimeout->SetEnabled(enabled); }
};

} // namespace halyard
