#pragma once

// The window in which the operator says whether a ledger is kept, for how long, and who is answered from it.
// The bridge owns the one.

#include "bridge/ledger/LedgerTerms.h"
#include "platform/Controls.h"
#include "surface/windows/Opened.h"

#include <functional>
#include <string>

namespace halyard {

class BridgeFile;

class LedgerTermsWindow : public Opened<LedgerTermsWindow> {
  public:
    /// `file` outlives it.
    LedgerTermsWindow(const SurfaceContext& context, BridgeFile& file);

    Form form{"frmLedgerTerms", "Ledger Settings"};
    Frame FrameKeep{"FrameKeep", "What is kept"};
    CheckBox chkKeep{"chkKeep", "Keep a ledger of every act and its cause"};
    CheckBox chkEvidence{"chkEvidence", "With an act upon a person, keep that person's last three lines"};
    Label lblTextDays{"lblTextDays", "Days after which lines and notes of strangers go (0: never)"};
    TextBox txtTextDays{"txtTextDays", "", 5};
    Label lblActDays{"lblActDays", "Days after which whole acts go (0: never)"};
    TextBox txtActDays{"txtActDays", "", 5};
    Frame FrameAnswers{"FrameAnswers", "Who is answered by instant message"};
    CheckBox chkAnswers{"chkAnswers", "Ops who send why NAME, last, undo, note NAME TEXT or health"};
    CheckBox chkAppeals{"chkAppeals", "Who stands on an eject list, once a day"};
    Label lblWhomToAsk{"lblWhomToAsk", "Whom to ask, in your own words"};
    TextBox txtWhomToAsk{"txtWhomToAsk", "", 300};
    Label lblNoAppeal{"lblNoAppeal", "No answer to (Enter adds, Delete takes off)"};
    TextBox txtNoAppeal{"txtNoAppeal", "", 100};
    ListBox lstNoAppeal{"lstNoAppeal"};
    Button cmdApply{"cmdApply", "Apply"};
    Label lblApplied{"lblApplied"}; ///< what came of it

    /// The terms hold from now on.
    std::function<void(const LedgerTerms&)> onApplied;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(FrameKeep), visit(chkKeep), visit(chkEvidence), visit(lblTextDays);
        visit(txtTextDays), visit(lblActDays), visit(txtActDays), visit(FrameAnswers), visit(chkAnswers);
        visit(chkAppeals), visit(lblWhomToAsk), visit(txtWhomToAsk), visit(lblNoAppeal);
        visit(txtNoAppeal), visit(lstNoAppeal), visit(cmdApply), visit(lblApplied);
    }

  private:
    friend class Opened<LedgerTermsWindow>;
    void Fill();
    void Apply();
    void AddNoAppeal();

    BridgeFile& file;
};

} // namespace halyard
