#pragma once

// The page of the window Network that says how the management interface of one's own server is reached and
// what may be done there. The window owns the one.

#include "bridge/networks/ManagementTerms.h"
#include "platform/Controls.h"

#include <functional>
#include <string>

namespace halyard {

class BridgeFile;

class ManagementPage {
  public:
    /// `file` outlives it; `tell` is for what could not be kept.
    ManagementPage(BridgeFile& file, std::function<void(const std::string&)> tell);

    Frame FrameManagement{"FrameManagement", "A server of one's own"};
    Label lblAddress{"lblAddress", "Management address"};
    TextBox txtAddress{"txtAddress", "", 1000};
    Label lblHeader{"lblHeader", "Header for a proxy before it"};
    TextBox txtHeader{"txtHeader", "", 1000}; ///< a secret
    CheckBox chkEnforce{"chkEnforce", "Bans end the person's session"};
    Label lblEnforce{"lblEnforce",
                     "This signs the person off the whole network, not out of one room. Ops and immunes are "
                     "never touched."};
    CheckBox chkSuspend{"chkSuspend", "Suspend the account of who is put out five times in ten minutes"};
    CheckBox chkWatch{"chkWatch", "Keep a keyed hash of each session's address for 30 days"};
    Button cmdApply{"cmdApply", "Apply"};

    /// The terms of a network were kept.
    std::function<void(const std::string& network)> onApplied;
    /// Shows what is kept for this network.
    void Fill(const std::string& network);
    /// Keeps what the boxes say where it is another.
    void Apply();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameManagement), visit(lblAddress), visit(txtAddress), visit(lblHeader), visit(txtHeader);
        visit(chkEnforce), visit(lblEnforce), visit(chkSuspend), visit(chkWatch), visit(cmdApply);
    }

  private:
    ManagementTerms Boxes() const;

    BridgeFile& file;
    std::function<void(const std::string&)> tell;
    std::string network; ///< whose terms the boxes show; empty before the first Fill
};

} // namespace halyard
