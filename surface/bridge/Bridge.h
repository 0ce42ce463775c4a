#pragma once

// What holds the bridge together above the desk: it hears the desk's news and acts through the desk's own
// doors. The desk doesn't know it and works as well without one. Programs make it behind the main window.

#include "bridge/NewsFan.h"
#include "bridge/guards/Guards.h"
#include "bridge/networks/BanAnswers.h"
#include "bridge/networks/BridgeFile.h"
#include "bridge/networks/check/NetworkCheck.h"
#include "bridge/networks/enforcement/Enforcement.h"
#include "surface/bridge/BridgeBar.h"
#include "surface/bridge/ChosenNetwork.h"
#include "surface/bridge/FootLine.h"
#include "surface/bridge/LedgerHost.h"
#include "surface/bridge/LedgerTermsWindow.h"
#include "surface/bridge/LedgerWiring.h"
#include "surface/bridge/NetworkRow.h"
#include "surface/bridge/NetworkWindow.h"
#include "surface/bridge/guards/GuardsWindow.h"
#include "surface/bridge/guards/TrueShow.h"
#include "surface/bridge/ledger/LedgerWindow.h"

#include <string>

namespace halyard {

class frmMain;

class Bridge : private News {
  public:
    /// `main` outlives it; its platform and its drawing are the bridge's too.
    explicit Bridge(frmMain& main);
    ~Bridge() override;
    Bridge(const Bridge&) = delete;
    Bridge& operator=(const Bridge&) = delete;

    /// Reads bridge.toml and takes the network that was chosen last. Behind Form_Load.
    void Start();
    /// Switches the guards; what bridge.toml says stays as it is.
    void TakeGuards(const GuardTerms& terms);

    NewsFan heard; ///< of the desk
    BridgeFile file;
    FootLine foot;
    NetworkRow row;
    BridgeBar bar;
    ChosenNetwork chosen;
    NetworkCheck check;
    NetworkWindow window;
    LedgerWindow ledgerWindow;
    LedgerTermsWindow ledgerTerms;
    BanAnswers answers;
    Enforcement enforcement;
    LedgerHost ledger;
    LedgerWiring wiring;
    Guards guards;
    TrueShow trueShow;
    GuardsWindow guardsWindow;

  private:
    void BindControls();
    void Refresh();
    void Ring(const GuardAlarm& alarm);
    void Enforce(const std::string& network);
    bool MayLogin(ConnectionPanel::By by);

    // News.
    void SignOnStage(const std::string& text) override;
    void SignOnRefused(int code, const std::string& text) override;
    void SignedOn(const std::string& name) override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void SocketFailed(int socket, int number, const std::string& words) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;
    void RateTold(std::int16_t room, int code, int classId) override;

    frmMain& main;
    std::string refusedByTls; // what was wrong with the main connection's certificate
};

} // namespace halyard
