#pragma once

// The bridge's configuration file, bridge.toml in the configuration folder: the operator's own networks,
// which network was chosen for which settings file and account, the switches of each network and those of the
// ledger. What the operator wrote is kept byte for byte when a choice is written: Halyard's own part stands
// at the end of the file, behind a line that says so.

#include "bridge/networks/OwnPart.h"
#include "oscar/networks/Network.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class Files;

class BridgeFile {
  public:
    /// Nothing is read yet: the networks are the built-in ones. `files` outlives it.
    explicit BridgeFile(Files& files);

    /// Reads the file anew. A missing one is an empty one. A wrong one leaves the built-in networks alone;
    /// what is right in Halyard's own part holds all the same. A header from a file that others can read is
    /// refused.
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
    // What follows changes the own part of the file as it is by then, so that what others wrote meanwhile
    // stays. False when that could not be written, or stands in a file or an own part that is wrong; the
    // change then holds until the program ends. False without an effect when a text isn't one that could be
    // read back: a name of 1 to 100 characters, an account of at most 255, a host of 1 to 255.
    /// Keeps the choice, by the file's canonical path and the account's normalised name; with an empty path,
    /// as the last choice alone.
    bool Choose(const std::string& network, const std::string& settingsPath, const std::string& account);

    /// What was set for a network; else the values of ManagementTerms, which allow nothing.
    ManagementTerms Management(std::string_view network) const;
    /// Address and header are one line of at most 1,000 characters each; a header has a name and a colon.
    bool SetManagement(std::string_view network, const ManagementTerms& terms);

    /// Whether the operator has allowed roasted passwords to this host on this network; case doesn't count.
    bool MayRoast(std::string_view network, std::string_view host) const;
    bool AllowRoasting(std::string_view network, std::string_view host);

    /// What is wanted of the ledger; the values of LedgerTerms where nothing was set.
    const LedgerTerms& Ledger() const { return own.ledger; }
    /// Days are 0 to LedgerTerms::LongestDays, the line on whom to ask at most 300 characters.
    bool SetLedger(const LedgerTerms& terms);

    /// What is wanted of the alarms; the values of AlarmTerms where nothing was set.
    const AlarmTerms& Alarms() const { return own.alarms; }
    /// Within the bounds of AlarmTerms; no control characters.
    bool SetAlarms(const AlarmTerms& terms);

    /// What was decided on each departure.
    const GuardTerms& Guards() const { return own.guards; }
    bool SetGuards(const GuardTerms& terms);

    /// What is seen of the watch in the main window.
    const WatchTerms& Watch() const { return own.watch; }
    bool SetWatch(const WatchTerms& terms);

  private:
    /// The bytes of the file; empty when there is none, nothing when they can't be had.
    std::optional<std::string> Bytes();
    /// Takes over the own part of the file, unless it is the one that was read or written last.
    void TakeOwn(std::string_view bytes, std::vector<std::string>& wrong);
    bool Change(const std::function<bool(OwnPart&)>& change);
    bool Write(std::string_view bytes);

    Files& files;
    std::string folder;
    std::string path; ///< empty while no folder is known
    std::vector<Network> networks = BuiltInNetworks();
    std::vector<std::string> problems;
    OwnPart own;
    std::string ownText; ///< the own part as it was in the file when `own` was taken from there or put there
    bool ownWrong = false;
};

} // namespace halyard
