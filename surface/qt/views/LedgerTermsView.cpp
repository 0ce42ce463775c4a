#include "surface/bridge/LedgerTermsWindow.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace halyard {

namespace {

QLineEdit* DaysBox(TextBox& box, const Label& label) {
    auto* widget = BindLine(box, label.Caption());
    widget->setMaximumWidth(widget->fontMetrics().averageCharWidth() * 10);
    return widget;
}

} // namespace

std::unique_ptr<FormWindow> DrawLedgerTerms(LedgerTermsWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* names = BindList(model.lstNoAppeal, model.lblNoAppeal.Caption());
    HighFor(*names, 4);
    auto* applied = BindValue(model.lblApplied);
    NameAfter(*applied, "What came of it");
    auto* keep =
        Fill(BindGroup(model.FrameKeep),
             {BindCheck(model.chkKeep), BindCheck(model.chkEvidence),
              Row({Item(BindLabel(model.lblTextDays), 1), DaysBox(model.txtTextDays, model.lblTextDays)}),
              Row({Item(BindLabel(model.lblActDays), 1), DaysBox(model.txtActDays, model.lblActDays)})});
    auto* answers =
        Fill(BindGroup(model.FrameAnswers),
             {BindCheck(model.chkAnswers), BindCheck(model.chkAppeals), BindLabel(model.lblWhomToAsk),
              BindLine(model.txtWhomToAsk, model.lblWhomToAsk.Caption()), BindLabel(model.lblNoAppeal),
              BindLine(model.txtNoAppeal, "Name that gets no answer"), Item(names, 1)});
    Fill(window.get(), {keep, Item(answers, 1), Row({Item(applied, 1), BindButton(model.cmdApply)})});
    return window;
}

} // namespace halyard
