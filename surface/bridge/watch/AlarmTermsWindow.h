#pragma once

// The window in which the operator says what rings, from what on, and where. The bridge owns the one.

#include "bridge/watch/alarms/AlarmTerms.h"
#include "platform/Controls.h"
#include "surface/windows/Opened.h"

#include <functional>
#include <string>

namespace halyard {

class BridgeFile;

class AlarmTermsWindow : public Opened<AlarmTermsWindow> {
  public:
    /// `file` outlives it.
    AlarmTermsWindow(const SurfaceContext& context, BridgeFile& file);

    Form form{"frmAlarmTerms", "Alarms"};
    Frame FrameKinds{"FrameKinds", "What rings"};
    ListBox lstKinds{"lstKinds"}; ///< "Off line: after 5 minutes, again after 30"
    Label lblKind{"lblKind"};     ///< what the selected one is about
    CheckBox chkKind{"chkKind", "It rings"};
    Label lblLimit{"lblLimit", "More than"};
    TextBox txtLimit{"txtLimit"};
    Label lblMinutes{"lblMinutes", "Minutes"};
    TextBox txtMinutes{"txtMinutes"};
    Label lblRest{"lblRest", "Minutes from one ring to the next"};
    TextBox txtRest{"txtRest"};
    Frame FrameRingers{"FrameRingers", "Where it rings"};
    CheckBox chkTray{"chkTray", "Beside the tray"};
    CheckBox chkList{"chkList", "In the foot line and its list"};
    Label lblCommand{"lblCommand", "Command: the program, then each argument on a line of its own"};
    ListBox lstCommand{"lstCommand"};
    TextBox txtCommand{"txtCommand", "", 1000};
    Label lblNames{"lblNames", "Names told by instant message, one in ten minutes"};
    ListBox lstNames{"lstNames"};
    TextBox txtName{"txtName"};
    CheckBox chkDaily{"chkDaily", "Tell them a line a day, too"};
    Button cmdDefaults{"cmdDefaults", "As Without a File"};
    Button cmdApply{"cmdApply", "Apply"};
    Label lblApplied{"lblApplied"}; ///< what came of it

    /// The terms hold from now on.
    std::function<void(const AlarmTerms&)> onApplied;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(FrameKinds), visit(lstKinds), visit(lblKind), visit(chkKind), visit(lblLimit);
        visit(txtLimit), visit(lblMinutes), visit(txtMinutes), visit(lblRest), visit(txtRest);
        visit(FrameRingers), visit(chkTray), visit(chkList), visit(lblCommand), visit(lstCommand);
        visit(txtCommand), visit(lblNames), visit(lstNames), visit(txtName), visit(chkDaily);
        visit(cmdDefaults), visit(cmdApply), visit(lblApplied);
    }

  private:
    friend class Opened<AlarmTermsWindow>;
    void Fill();
    void Fill(const AlarmTerms& terms);
    void FillKinds();
    void ShowKind();
    /// False, and it is told, when a box of the selected kind holds no number that fits.
    bool TakeKind();
    void Apply();
    void AddName();
    AlarmKind Selected() const;

    BridgeFile& file;
    AlarmTerms terms; ///< of the kinds, as the operator has them so far
    int selected = 0; ///< line of lstKinds whose values the boxes show
};

} // namespace halyard
