#pragma once

// The network that the bot signs on to: by whom it is chosen, for which settings file and account it is kept,
// and whether a sign-on there may begin. The bridge owns the one.

#include "oscar/networks/Network.h"
#include "state/Options.h"
#include "surface/panels/ConnectionPanel.h"

#include <functional>
#include <set>
#include <string>
#include <utility>

namespace halyard {

class BridgeFile;
class frmMain;

class ChosenNetwork {
  public:
    /// Both outlive it.
    ChosenNetwork(frmMain& main, BridgeFile& file);

    /// Why a sign-on is refused, or what else happened; empty when a sign-on begins.
    std::function<void(const std::string& text)> onHappened;
    /// What the operator should know and can't be seen at once.
    std::function<void(const std::string& text)> onTell;
    /// Name, definition or standing have changed.
    std::function<void()> onChanged;

    /// The one of the sign-on that was begun last; empty before the first.
    const std::string& OfSignOn() const { return begun.network; }
    /// May be one that is no longer defined.
    const std::string& Name() const { return name; }
    /// Null when it is no longer defined.
    const Network* Defined() const;
    /// What holds of it: that it is for the next sign-on, that passwords go out reversible or are not
    /// checked.
    std::string Standing() const;
    /// The operator's choice: for the next sign-on, and kept for the loaded file and the account.
    void Choose(const std::string& network);
    /// The choice kept for the settings that are there now.
    void Follow(Options::FileUse use, const std::string& path);
    /// The file of networks has been read anew.
    void TakeOver();
    /// See ConnectionPanel::onMayLogin.
    bool MayLogin(ConnectionPanel::By by);
    /// Whether the password may go to the host at all. Asks, and says why not.
    bool MayConnect(ConnectionPanel::By by);
    /// The bot is on line or on its way there.
    bool Busy() const;
    /// Stops a sign-on that would send a roasted password which MayLogin has not let pass: the operator has
    /// changed the way of signing on in between.
    void BeforeRoasting();
    /// What a wrong password may come from besides itself; empty when there is nothing to say.
    std::string SaltHint() const;
    /// A check has found that this host of a network takes any password, or that it doesn't.
    void PasswordsChecked(const std::string& network, const std::string& host, bool checked);

  private:
    std::string Account() const;
    std::string Host() const;
    void Take(const std::string& network);
    void Apply();
    void KeepChoice();
    bool AskRoasting(const Network& network, ConnectionPanel::By by);
    bool MayRoast(const std::string& network, const std::string& host) const;
    bool Refuse(const std::string& text, ConnectionPanel::By by);
    void Changed() const;

    frmMain& main;
    BridgeFile& file;
    std::string name;
    std::string path;   ///< of the loaded settings file, empty for none
    Network inUse;      ///< by the control
    bool waits = false; ///< for the next sign-on
    /// The sign-on that was begun last.
    struct Begun {
        std::string network = {};
        std::string host = {};
        bool hashed = true;
        bool mayRoast = false;
    } begun;
    std::string refused;                                     ///< the way back, and why
    std::set<std::pair<std::string, std::string>> unchecked; ///< networks and hosts that take any password
};

} // namespace halyard
