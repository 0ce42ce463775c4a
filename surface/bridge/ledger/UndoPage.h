#pragma once

// The page of the window Ledger on which acts are taken back: what it would mean act by act, ticks, and how
// far it has come. It finds out and shows; who carries out is told by the hooks. The window owns the one.

#include "platform/Table.h"
#include "surface/SurfaceContext.h"
#include "surface/bridge/ledger/LedgerHooks.h"

#include <optional>
#include <string>
#include <vector>

namespace halyard {

/// How far an undo has come.
struct UndoProgress {
    int done = 0; ///< of `all`, failed ones too
    int all = 0;
    std::int64_t ends = 0;             ///< about when, ms UTC; 0 when that can't be said
    std::string held;                  ///< why the next step waits, in words; Windows-1252
    std::vector<std::string> failures; ///< in words; Windows-1252
    bool running = false;
};

class UndoPage {
  public:
    UndoPage(const SurfaceContext& context, LedgerHooks& hooks);

    Frame FrameUndo{"FrameUndo", "Undo"};
    OptionGroup optWhat{"optWhat", {"These acts", "All of this op", "All of this entry", "All of this run"}};
    Label lblOf{"lblOf"}; ///< whose acts
    Label lblSince{"lblSince", "Since"};
    TextBox txtSince{"txtSince", "", 40};
    Button cmdPreview{"cmdPreview", "Preview"};
    Label lblPlan{"lblPlan"};
    TableBox tblPlan{"tblPlan", {{"Act", 12}, {"What taking it back means", 0}, {"Besides", 50}}};
    TextBox txtMoved{"txtMoved"}; ///< read only: what is other than in the last preview, what failed
    CheckBox chkTell{"chkTell", "Tell the persons by one IM each"};
    Button cmdCarryOut{"cmdCarryOut", "Carry Out"};
    Button cmdStop{"cmdStop", "Stop"};
    Gauge gaugeUndo{"gaugeUndo"};
    Label lblProgress{"lblProgress"};
    Button cmdActs{"cmdActs", "Back to the Acts"};

    /// Shows what taking back these acts means; `chosen` says which op, entry and run the other choices are
    /// of. Nothing while an undo runs.
    void Open(std::vector<std::int64_t> acts, std::optional<ActRow> chosen);
    void Show(const UndoProgress& progress);
    /// Something was undone, or the run ended.
    std::function<void()> onUndone;
    /// Back to the acts.
    std::function<void()> onLeave;

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameUndo), visit(optWhat), visit(lblOf), visit(lblSince), visit(txtSince);
        visit(cmdPreview), visit(lblPlan), visit(tblPlan), visit(txtMoved), visit(chkTell);
        visit(cmdCarryOut), visit(cmdStop), visit(gaugeUndo), visit(lblProgress), visit(cmdActs);
    }

  private:
    std::string Asked(UndoAsk& what) const;
    std::string Whose() const;
    void Preview();
    void CarryOut();
    void Took(const UndoPlan& found);
    void ShowMoved(const UndoPlan& now, const std::vector<std::string>& moved);
    void SayTicks();
    void Say(const std::string& words);
    UndoItem& ItemAt(int index);

    const SurfaceContext& context;
    LedgerHooks& hooks;
    LedgerQuestion question;
    std::vector<std::int64_t> acts;
    std::optional<ActRow> chosen;
    UndoAsk ask;
    UndoPlan plan; ///< as shown, with its ticks
    bool shown = false;
    bool running = false;
};

} // namespace halyard
