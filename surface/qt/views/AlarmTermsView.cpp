#include "surface/bridge/watch/AlarmTermsWindow.h"
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

QLineEdit* MinutesBox(TextBox& box, const Label& label) {
    auto* widget = BindLine(box, label.Caption());
    widget->setMaximumWidth(widget->fontMetrics().averageCharWidth() * 10);
    return widget;
}

} // namespace

std::unique_ptr<FormWindow> DrawAlarmTerms(AlarmTermsWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* kinds = BindList(model.lstKinds, model.FrameKinds.Caption());
    HighFor(*kinds, 8);
    kinds->setMinimumWidth(kinds->fontMetrics().averageCharWidth() * 54);
    auto* command = BindList(model.lstCommand, "Program and arguments");
    auto* names = BindList(model.lstNames, model.lblNames.Caption());
    HighFor(*command, 3);
    HighFor(*names, 3);
    auto* says = BindValue(model.lblKind, 2);
    NameAfter(*says, "What it is about");
    auto* applied = BindValue(model.lblApplied);
    NameAfter(*applied, "What came of it");
    auto* what =
        Fill(BindGroup(model.FrameKinds),
             {Item(kinds, 1), says, BindCheck(model.chkKind),
              Row({BindLabel(model.lblLimit), MinutesBox(model.txtLimit, model.lblLimit),
                   BindLabel(model.lblMinutes), MinutesBox(model.txtMinutes, model.lblMinutes), Room()}),
              Row({Item(BindLabel(model.lblRest), 1), MinutesBox(model.txtRest, model.lblRest)})});
    auto* where =
        Fill(BindGroup(model.FrameRingers),
             {BindCheck(model.chkTray), BindCheck(model.chkList), BindLabel(model.lblCommand),
              BindLine(model.txtCommand, "Program or argument"), Item(command, 1), BindLabel(model.lblNames),
              BindLine(model.txtName, "Name that is told"), Item(names, 1), BindCheck(model.chkDaily)});
    Fill(window.get(), {Item(Row({Item(what, 1), Item(where, 1)}), 1),
                        Row({Item(applied, 1), BindButton(model.cmdDefaults), BindButton(model.cmdApply)})});
    return window;
}

} // namespace halyard
