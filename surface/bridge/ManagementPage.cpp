#include "surface/bridge/ManagementPage.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"

namespace halyard {

ManagementPage::ManagementPage(BridgeFile& file, std::function<void(const std::string&)> tell)
    : file(file), tell(std::move(tell)) {
    cmdApply.Click = [this] { Apply(); };
    chkEnforce.Click = [this] { chkSuspend.SetEnabled(chkEnforce.Value() == 1); };
    chkSuspend.SetEnabled(false);
}

void ManagementPage::Fill(const std::string& name) {
    network = name;
    const auto terms = file.Management(name);
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
    if (network.empty() || Boxes() == file.Management(network)) return;
    const auto wanted = Boxes();
    if (!file.SetManagement(network, wanted))
        tell(file.Management(network) == wanted
                 ? "The management of " + network +
                       " could not be written: what was set holds until the program ends."
                 : "The management address or header is not valid: nothing was changed.");
    Fill(network);
    if (onApplied) onApplied(network);
}

} // namespace halyard
