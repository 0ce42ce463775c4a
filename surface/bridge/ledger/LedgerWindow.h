#pragma once

// The window Ledger: every act and its cause, newest first, looked at all together or from the side of a
// person, an op, a rule; found, copied, exported, taken back. The bridge owns the one and fills its hooks.

#include "surface/bridge/ledger/ActExport.h"
#include "surface/bridge/ledger/ActList.h"
#include "surface/bridge/ledger/OpPane.h"
#include "surface/bridge/ledger/PersonPane.h"
#include "surface/bridge/ledger/RulePane.h"
#include "surface/bridge/ledger/UndoPage.h"
#include "surface/windows/Opened.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard {

class LedgerWindow : public Opened<LedgerWindow> {
  public:
    enum Side { All, Person, Op, Rule };

    explicit LedgerWindow(const SurfaceContext& context);

    LedgerHooks hooks; ///< filled before the window is opened; what is filled later holds from then on
    Form form{"frmLedger", "Ledger"};
    Frame FrameActs{"FrameActs", "Acts"};
    OptionGroup optSide{"optSide", {"All", "A person", "An op", "A rule"}};
    Label lblWho{"lblWho", "Name"};
    TextBox txtWho{"txtWho", "", 1000};
    Label lblSearch{"lblSearch", "Search"};
    TextBox txtSearch{"txtSearch", "", 2000};
    Button cmdSearch{"cmdSearch", "Search"};
    Button cmdBack{"cmdBack", "Back"};
    Label lblMistake{"lblMistake"}; ///< what is wrong with the search, and where
    ActList list;
    TextBox txtAct{"txtAct"}; ///< read only: the whole of the chosen act
    Frame FrameSide{"FrameSide"};
    PersonPane person;
    OpPane op;
    RulePane rule;
    Button cmdPerson{"cmdPerson", "Person"};
    Button cmdOp{"cmdOp", "Op"};
    Button cmdRule{"cmdRule", "Rule"};
    Button cmdUndo{"cmdUndo", "Undo\x85"};
    Button cmdCopy{"cmdCopy", "Copy"};
    Button cmdExport{"cmdExport", "Export\x85"};
    Button cmdBackUp{"cmdBackUp", "Back Up\x85"};
    Label lblHappened{"lblHappened"}; ///< what came of what was asked for last
    UndoPage undo;

    /// Where the search has its mistake, counted from 0; a view puts the caret there.
    std::function<void(int place)> onMistake;

    /// The ledger has written something.
    void Written();
    /// Another ledger is open, or none any more.
    void Reopened();
    void Tell(const std::string& words) { lblHappened.SetCaption(words); }
    /// The acts of a person (a name, Windows-1252), as from elsewhere in the program.
    void ShowPerson(const std::string& name);
    /// The acts from `since` on and before `until`, ms UTC, as from elsewhere in the program.
    void ShowBetween(std::int64_t since, std::int64_t until);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(FrameActs), visit(optSide), visit(lblWho), visit(txtWho), visit(lblSearch);
        visit(txtSearch), visit(cmdSearch), visit(cmdBack), visit(lblMistake), visit(list.lblNew);
        visit(list.lblActs), visit(list.tblActs), visit(txtAct), visit(FrameSide), visit(cmdPerson);
        visit(cmdOp), visit(cmdRule), visit(cmdUndo), visit(cmdCopy), visit(cmdExport);
        visit(cmdBackUp), visit(lblHappened);
        person.EachControl(visit), op.EachControl(visit), rule.EachControl(visit);
        undo.EachControl(visit);
    }

  private:
    friend class Opened<LedgerWindow>;
    /// One way to look, with where one was.
    struct Look {
        Side side = All;
        std::int64_t row = 0; ///< of persons or rules, 0 where only a name is known
        std::string who;      ///< UTF-8
        std::string search;   ///< Windows-1252
        ActList::Place place = {};
    };

    void BindButtons();
    void Fill();
    void Go(const Look& wanted);
    bool Take(const Look& wanted);
    void Back();
    void Typed();
    void Chosen();
    void GoSide(Side side);
    void Key(int key);
    void ShowPage(bool ofUndo);
    void Undo();
    void Copy();
    void Export();
    void BackUp();

    LedgerQuestion evidence;
    ActExport exporting;
    std::vector<Look> before; ///< the ways back, the last one last
    Look look;                ///< that is seen
    bool taking = false;      ///< the boxes are filled by the window itself
};

} // namespace halyard
