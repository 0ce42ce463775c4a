#include "surface/bridge/ChosenNetwork.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"
#include "oscar/networks/Reach.h"
#include "platform/Platform.h"
#include "surface/frmMain.h"

namespace halyard {

namespace {

bool IsLaidDown(const std::string& network) { return SameName(network, LaidDownNetwork); }

/// Whether the control would do the same on both.
bool ActsAlike(const Network& one, const Network& other) {
    return one.secrets.salt == other.secrets.salt && one.secrets.roasting == other.secrets.roasting &&
           one.ways == other.ways && one.pin == other.pin;
}

} // namespace

ChosenNetwork::ChosenNetwork(frmMain& main, BridgeFile& file)
    : main(main), file(file), name(LaidDownNetwork), inUse(BuiltInNetworks().front()) {}

const Network* ChosenNetwork::Defined() const { return file.Find(name); }

std::string ChosenNetwork::Account() const { return main.options.Controls.txtSN.Text(); }

std::string ChosenNetwork::Host() const { return NormalizeName(main.options.Controls.cmbServer.Text()); }

bool ChosenNetwork::Busy() const { return main.connection.cmdSignOff.Enabled(); }

std::string ChosenNetwork::Standing() const {
    std::string text;
    const auto add = [&text](const std::string& sentence) { text += (text.empty() ? "" : " ") + sentence; };
    if (!Defined())
        add("The network \"" + name + "\" is no longer defined: nobody is signed on there.");
    else if (waits && Busy())
        add(name + " holds from the next sign-on.");
    if (IsLaidDown(begun.network) && !begun.hashed)
        add("The password goes out roasted, which whoever listens on the way can reverse.");
    if (unchecked.contains({name, Host()}))
        add("Anybody can sign on here under any name: this server checks no passwords.");
    return text;
}

void ChosenNetwork::Choose(const std::string& network) {
    Take(network);
    KeepChoice();
}

void ChosenNetwork::KeepChoice() {
    if (file.ChosenFor(path, Account()) == name) return;
    if (!file.Choose(name, path, Account()) && onTell)
        onTell("The choice of the network could not be written: it holds until the program ends.");
}

void ChosenNetwork::Follow(Options::FileUse use, const std::string& filePath) {
    path = filePath;
    if (use == Options::FileUse::Read) Take(file.ChosenFor(path, Account()));
    if (use == Options::FileUse::Written) KeepChoice();
}

void ChosenNetwork::TakeOver() { Take(name); }

void ChosenNetwork::Take(const std::string& network) {
    name = network;
    const auto* defined = Defined();
    if (defined) name = defined->name;
    main.options.Controls.cmbServer.OfferFurther(defined ? defined->hosts : std::vector<std::string>());
    waits = defined && !ActsAlike(*defined, inUse);
    if (!Busy()) Apply();
    Changed();
}

void ChosenNetwork::Apply() {
    if (const auto* network = Defined(); network && waits) {
        inUse = *network;
        main.Control().UseNetwork(inUse);
        waits = false;
    }
}

bool ChosenNetwork::MayLogin(ConnectionPanel::By by) {
    if (!MayConnect(by)) return false;
    begun = {Defined()->name, Host(), main.Control().Settings.LoginMD5, MayRoast(name, Host())};
    Apply();
    refused.clear();
    onHappened("");
    Changed();
    return true;
}

bool ChosenNetwork::MayConnect(ConnectionPanel::By by) {
    const auto* network = Defined();
    if (!network)
        return Refuse("The network \"" + name + "\" is no longer defined. Choose or define one.", by);
    return main.Control().Settings.LoginMD5 || MayRoast(network->name, Host()) || AskRoasting(*network, by);
}

bool ChosenNetwork::MayRoast(const std::string& network, const std::string& host) const {
    return IsLaidDown(network) || ReachOf(host) == Reach::Loopback || file.MayRoast(network, host);
}

bool ChosenNetwork::AskRoasting(const Network& network, ConnectionPanel::By by) {
    const auto host = Host();
    if (by == ConnectionPanel::By::WayBack)
        return Refuse(
            "The password would go to " + host + " roasted, which can be reversed: sign on by hand.", by);
    const bool yes = main.Context().platform.Boxes().YesNo(
        "Network", "Without MD5 the password goes to " + host +
                       " roasted, which whoever listens on the way can reverse. Send it to this host on the "
                       "network \"" +
                       network.name + "\" all the same?");
    if (!yes)
        onHappened("Not signed on: the password was not to go out roasted. Switch MD5 on to send a hash.");
    else if (!file.AllowRoasting(network.name, host) && onTell)
        onTell("That roasted passwords may go to " + host + " could not be written.");
    return yes;
}

void ChosenNetwork::BeforeRoasting() {
    begun.hashed = false;
    if (begun.mayRoast) return Changed();
    main.Control().LogOff();
    onHappened("Not signed on: MD5 was switched off in between, and the password was not to go out roasted.");
}

bool ChosenNetwork::Refuse(const std::string& text, ConnectionPanel::By by) {
    const auto words = "Not signed on: " + text;
    onHappened(words);
    if (by == ConnectionPanel::By::Hand)
        main.Context().platform.Boxes().Note("Note", text);
    else if (refused != text && onTell)
        onTell(words);
    refused = by == ConnectionPanel::By::Hand ? "" : text;
    return false;
}

std::string ChosenNetwork::SaltHint() const {
    const auto* network = file.Find(begun.network);
    if (!network || !begun.hashed) return {};
    std::string others;
    for (const auto& other : file.Networks())
        if (other.secrets.salt != network->secrets.salt) others += (others.empty() ? "" : ", ") + other.name;
    if (others.empty()) return {};
    return "Or the network's salt is another one: that of " + others + " differs.";
}

void ChosenNetwork::PasswordsChecked(const std::string& network, const std::string& host, bool checked) {
    if (checked)
        unchecked.erase({network, host});
    else
        unchecked.insert({network, host});
    Changed();
}

void ChosenNetwork::Changed() const {
    if (onChanged) onChanged();
}

} // namespace halyard
