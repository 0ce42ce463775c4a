#pragma once

// The page of the window Network that says how the management interface of one's own server is reached and
// what may be done there. The window owns the one.

#include "bridge/networks/ManagementTerms.h"
#include "platform/Controls.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <utility>

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
    CheckBox chkSuspend{"chkSuspend", "Suspend accounts that are put out five times in ten minutes"};
    CheckBox chkWatch{"chkWatch", "Keep a keyed hash of each session's address for 30 days"};
    Button cmdApply{"cmdApply", "Apply"};
    Label lblSuspects{"lblSuspects", "Entered from where somebody else was banned"};
    ListBox lstSuspects{"lstSuspects"};
    Button cmdBanSuspect{"cmdBanSuspect", "Ban"};

    /// The terms of a network were kept.
    std::function<void(const std::string& network)> onApplied;
    /// The operator wants this person out of the room at this socket slot.
    std::function<void(std::int16_t room, const std::string& name)> onBan;
    /// `name` has entered the room from where `other` was banned. The last 100 are listed.
    void AddSuspect(std::int16_t room, const std::string& name, const std::string& other);
    /// The slot belongs to another room from now on: who was listed for the one before is not any more.
    void ForgetRoom(std::int16_t room);
    /// Shows what is kept for this network.
    void Fill(const std::string& network);
    /// Keeps what the boxes say where somebody has changed it.
    void Apply();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameManagement), visit(lblAddress), visit(txtAddress), visit(lblHeader), visit(txtHeader);
        visit(chkEnforce), visit(lblEnforce), visit(chkSuspend), visit(chkWatch), visit(cmdApply);
        visit(lblSuspects), visit(lstSuspects), visit(cmdBanSuspect);
    }

  private:
    ManagementTerms Boxes() const;

    void BanSuspect();
    void TakeOff(int index);

    BridgeFile& file;
    std::function<void(const std::string&)> tell;
    std::deque<std::pair<std::int16_t, std::string>> suspects; ///< as listed: room and name
    ManagementTerms filled;                                    ///< into the boxes
    std::string network; ///< whose terms the boxes show; empty before the first Fill
};

} // namespace halyard
