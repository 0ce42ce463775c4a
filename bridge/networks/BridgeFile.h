#pragma once

// The bridge's configuration file, bridge.toml in the configuration folder: the operator's own networks,
// which network was chosen for which settings file and account, and the switches of each network. What the
// operator wrote is kept byte for byte when a choice is written: Halyard's own part stands at the end of the
// file, behind a line that says so.

#include "bridge/networks/OwnPart.h"
#include "oscar/networks/Network.h"

#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class Files;

class BridgeFile {
  public:
    /// Nothing is read yet: the networks are the built-in ones. `files` outlives it.
    explicit BridgeFile(Files& files);

    /// Reads the file anew. A missing one is an empty one. A wrong one leaves the built-in networks alone.
    void Load();
    /// What was wrong, each with "line 3, column 5: " in front where it has a place; empty when nothing was.
    const std::vector<std::string>& Problems() const { return problems; }
    /// The built-in networks, then those of the file. Load() makes them anew: keep none of them across it.
    const std::vector<Network>& Networks() const { return networks; }
    /// Null when there is none of this name; case and blanks don't count.
    const Network* Find(std::string_view name) const { return FindNetwork(networks, name); }

    /// The network chosen for a settings file and an account. A file or an account that none was chosen for
    /// gives "Laid down"; an empty path (no file loaded) the last choice, or "Laid down". May name a network
    /// that is no longer defined.
    std::string ChosenFor(const std::string& settingsPath, const std::string& account) const;
    /// Keeps it, by the file's canonical path and the account's normalised name; with an empty path, as the
    /// last choice alone. False when it couldn't be written; it then holds until the program ends.
    bool Choose(const std::string& network, const std::string& settingsPath, const std::string& account);

    /// What was set for a network, or nothing allowed.
    ManagementTerms Management(std::string_view network) const;
    /// False when it couldn't be written; it then holds until the program ends. False without an effect for
    /// an address or header that isn't one line of at most 1,000 characters.
    bool SetManagement(std::string_view network, const ManagementTerms& terms);

    /// Whether the operator has allowed roasted passwords to this host on this network.
    bool MayRoast(std::string_view network, std::string_view host) const;
    /// False when it couldn't be written; it then holds until the program ends.
    bool AllowRoasting(std::string_view network, std::string_view host);

  private:
    Files& files;
    std::vector<Network> networks = BuiltInNetworks();
    std::vector<std::string> problems;
    OwnPart own;
};

} // namespace halyard
