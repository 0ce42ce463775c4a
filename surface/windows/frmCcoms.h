#pragma once

// The window that edits the words of the commands. Edits count only once they are set.

#include "platform/Controls.h"
#include "state/CcomTable.h"
#include "surface/look/ControlArrays.h"
#include "surface/windows/Edited.h"

#include <deque>
#include <string>

namespace halyard {

class frmCcoms : public Edited<frmCcoms> {
  public:
    explicit frmCcoms(const SurfaceContext& context);

    Form form{"frmCcoms", "Ccoms"};
    std::deque<TextBox> txtCcom = NumberedBoxes("txtCcom", CcomCount, 10);
    /// Not in the order of the ccoms behind them: a box's number is the ccom's, as the table of ccoms has it.
    std::deque<Label> lblMisc = Numbered<Label>(
        "lblMisc", 0, {"Op",           "Unop",          "Immune",     "Unimmune",  "Autoban",    "Unautoban",
                       "Autoword",     "Unautoword",    "Kick",       "Ban",       "Unban",      "Status",
                       "Info",         "Autoban Level", "Rejoin",     "Ban Pause", "Ghost Ban",  "Lock Op",
                       "Unlock Op",    "Lock Imm",      "Unlock imm", "Lock Ban",  "Unlock Ban", "Char Ban",
                       "Set Char ban", "Autoban ICQ",   "User Info",  "Trigger",   "Time Ban"});
    TextBox txtTrigger{"txtTrigger", "", 3};
    CheckBox chkComments{"chkComments", "Allow Ccom Comments"};
    Button cmdSetCcoms{"cmdSetCcoms", "Set Ccoms"};
    Button cmdResetCcoms{"cmdResetCcoms", "Reset Ccoms"};

    /// The label beside the box of this ccom.
    const Label& LabelOf(int ccom) const;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(txtTrigger), visit(chkComments), visit(cmdSetCcoms), visit(cmdResetCcoms);
        for (auto& box : txtCcom) visit(box);
        for (auto& label : lblMisc) visit(label);
    }

  private:
    friend class Opened<frmCcoms>;
    friend class Edited<frmCcoms>;
    void Fill();
    std::string Content() const;
    void ShowTexts();
    void SetClicked();
    void ResetClicked();
};

} // namespace halyard
