#include "surface/bridge/ledger/LedgerWindow.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/widgets/PageArea.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

namespace halyard {

namespace {

QWidget* DrawPerson(PersonPane& pane) {
    auto* text = BindReading(pane.txtPerson, "What is known of the person");
    HighFor(*text, 4);
    auto* rooms = BindChoice(pane.cmbRoom, pane.lblRoom.Caption());
    rooms->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return Fill(
        BindGroup(pane.FramePerson),
        {Item(text, 1), Row({Item(BindLine(pane.txtNote, "Note"), 1), BindButton(pane.cmdAddNote)}),
         Row({BindLabel(pane.lblRoom), Item(rooms, 1), BindButton(pane.cmdBan), BindButton(pane.cmdUnban)}),
         Row({Room(), BindButton(pane.cmdImmune), BindButton(pane.cmdForget)})});
}

QWidget* DrawOp(OpPane& pane) {
    auto* text = BindReading(pane.txtOp, "What the op did");
    HighFor(*text, 3);
    return Fill(BindGroup(pane.FrameOp), {Item(text, 1), Item(BindTable(pane.tblOps, "Ops"), 1)});
}

QWidget* DrawRule(RulePane& pane) {
    auto* text = BindReading(pane.txtRule, "What the rule did");
    HighFor(*text, 3);
    return Fill(BindGroup(pane.FrameRule),
                {Item(text, 1), Item(BindTable(pane.tblRules, "Rules"), 1), BindCheck(pane.chkNeverHit)});
}

/// A text that may be empty keeps a name by which it is known.
QLabel* Named(Label& label, const char* name) {
    auto* widget = BindValue(label);
    if (label.Caption().empty()) NameAfter(*widget, name);
    return widget;
}

/// Shows a widget only while its control says something.
template <typename Says>
void WhileSaid(Control& control, QWidget& widget, Says says) {
    control.onView = [follow = control.onView, &widget, says] {
        follow();
        widget.setHidden(!says());
    };
    control.onView();
}

QWidget* ActsPage(LedgerWindow& model) {
    auto* search = BindLine(model.txtSearch, model.lblSearch.Caption());
    search->setPlaceholderText(
        QStringLiteral("room:lobby op:roomboss rule:spam kind:ban since:2d reason:rude name"));
    model.onMistake = [search](int place) {
        search->setFocus();
        search->setCursorPosition(place);
    };
    auto* acts = BindTable(model.list.tblActs, "Acts");
    HighFor(*acts, 20);
    auto* act = BindReading(model.txtAct, "The chosen act");
    HighFor(*act, 14); // as high as what stands beside it
    auto* side = new PageArea;
    side->AddPage(DrawPerson(model.person), model.person.FramePerson);
    side->AddPage(DrawOp(model.op), model.op.FrameOp);
    side->AddPage(DrawRule(model.rule), model.rule.FrameRule);
    auto* sidePlace = BindPlace(model.FrameSide, "Beside the acts");
    Fill(sidePlace, {Item(side, 1)})->layout()->setContentsMargins(0, 0, 0, 0);
    auto* mistake = Named(model.lblMistake, "Mistake in the search");
    auto* state = Named(model.list.lblActs, "State of the acts");
    WhileSaid(model.lblMistake, *mistake, [&model, state] {
        const bool wrong = !model.lblMistake.Caption().empty();
        state->setHidden(wrong); // so that no line moves
        return wrong;
    });
    auto* news = BindPressed(model.list.lblNew, Press::Link);
    auto kept = news->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    news->setSizePolicy(kept);
    auto* happened = Named(model.lblHappened, "What happened last");
    return Fill(BindPlace(model.FrameActs, model.FrameActs.Caption()),
                {Row({BindOptions(model.optSide, "Whose acts"), BindLabel(model.lblWho),
                      Item(BindLine(model.txtWho, model.lblWho.Caption()), 1), BindButton(model.cmdBack)}),
                 Row({BindLabel(model.lblSearch), Item(search, 1), BindButton(model.cmdSearch)}),
                 Row({Item(state, 1), Item(mistake, 1), news}), Item(acts, 3),
                 Item(Row({Item(act, 1), Item(sidePlace, 1)}), 1),
                 Row({BindButton(model.cmdPerson), BindButton(model.cmdOp), BindButton(model.cmdRule),
                      Item(happened, 1), BindButton(model.cmdUndo), BindButton(model.cmdCopy),
                      BindButton(model.cmdExport), BindButton(model.cmdBackUp)})});
}

QWidget* DrawUndoPage(UndoPage& page) {
    auto* plan = BindTable(page.tblPlan, "What is taken back");
    HighFor(*plan, 10);
    auto* moved = BindReading(page.txtMoved, "What is other now, and what failed");
    HighFor(*moved, 3);
    WhileSaid(page.txtMoved, *moved, [&page] { return !page.txtMoved.Text().empty(); });
    auto* since = BindLine(page.txtSince, page.lblSince.Caption());
    since->setMaximumWidth(since->fontMetrics().averageCharWidth() * 24);
    return Fill(BindGroup(page.FrameUndo),
                {Row({BindOptions(page.optWhat, "What is taken back"), BindLabel(page.lblSince), since,
                      BindButton(page.cmdPreview)}),
                 Named(page.lblOf, "Whose acts"), Item(plan, 4), Named(page.lblPlan, "State of the preview"),
                 Item(moved, 1), Row({BindCheck(page.chkTell), Room(), BindButton(page.cmdCarryOut)}),
                 Row({Item(BindGauge(page.gaugeUndo, "How far it is"), 1),
                      Item(Named(page.lblProgress, "Progress"), 1), BindButton(page.cmdStop)}),
                 Row({Room(), BindButton(page.cmdActs)})});
}

} // namespace

std::unique_ptr<FormWindow> DrawLedger(LedgerWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* pages = new PageArea;
    auto* acts = ActsPage(model);
    WideFor(*acts, 165);
    pages->AddPage(acts, model.FrameActs);
    pages->AddPage(DrawUndoPage(model.undo), model.undo.FrameUndo);
    Fill(window.get(), {Item(pages, 1)});
    return window;
}

} // namespace halyard
