#include "surface/bridge/ManagementPage.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"

namespace halyard {

namespace {

constexpr std::size_t MostSuspects = 100;

} // namespace

ManagementPage::ManagementPage(BridgeFile& file, std::function<void(const std::string&)> tell)
    : file(file), tell(std::move(tell)) {
    cmdApply.Click = [this] { Apply(); };
    chkEnforce.Click = [this] { chkSuspend.SetEnabled(chkEnforce.Value() == 1); };
    chkSuspend.SetEnabled(false);
    cmdBanSuspect.Click = [this] { BanSuspect(); };
    cmdBanSuspect.SetEnabled(false);
    lstSuspects.Click = [this] { cmdBanSuspect.SetEnabled(lstSuspects.ListIndex() >= 0); };
}

void ManagementPage::AddSuspect(std::int16_t room, const std::string& name, const std::string& other) {
    if (suspects.size() >= MostSuspects) TakeOff(0);
    suspects.emplace_back(room, name);
    lstSuspects.AddItem(name + ", where " + other + " was banned");
    cmdBanSuspect.SetEnabled(lstSuspects.ListIndex() >= 0);
}

void ManagementPage::BanSuspect() {
    const auto index = lstSuspects.ListIndex();
    if (index < 0) return;
    const auto [room, name] = suspects[static_cast<std::size_t>(index)];
    TakeOff(index);
    if (onBan) onBan(room, name);
}

void ManagementPage::ForgetRoom(std::int16_t room) {
    for (int index = lstSuspects.ListCount() - 1; index >= 0; --index)
        if (suspects[static_cast<std::size_t>(index)].first == room) TakeOff(index);
}

void ManagementPage::TakeOff(int index) {
    suspects.erase(suspects.begin() + index);
    lstSuspects.RemoveItem(index);
    cmdBanSuspect.SetEnabled(lstSuspects.ListIndex() >= 0);
}

void ManagementPage::Fill(const std::string& name) {
    network = name;
    const auto terms = filled = file.Management(name);
    FrameManagement.SetCaption("A server of one's own: " + name);
    txtAddress.SetText(terms.address);
    txtHeader.SetText(terms.header);
    chkEnforce.SetValue(terms.enforce ? 1 : 0);
    chkSuspend.SetValue(terms.suspend ? 1 : 0);
    chkWatch.SetValue(terms.watchAddresses ? 1 : 0);
}

ManagementTerms ManagementPage::Boxes() const {
    return {Trim(txtAddress.Text()), Trim(txtHeader.Text()), chkEnforce.Value() == 1, chkSuspend.Value() == 1,
            chkWatch.Value() == 1};
}

void ManagementPage::Apply() {
    const auto wanted = Boxes();
    if (network.empty() || wanted == filled) return;
    if (!file.SetManagement(network, wanted))
        tell(file.Management(network) == wanted
                 ? "The management of " + network +
                       " could not be written: what was set holds until the program ends."
                 : "The management address or header is not valid: nothing was changed.");
    Fill(network);
    if (onApplied) onApplied(network);
}

} // namespace halyard
