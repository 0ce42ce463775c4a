#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmCcoms.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace halyard {

namespace {

constexpr int Columns = 3; // of ccoms
constexpr int Rows = (CcomCount + Columns - 1) / Columns;
constexpr std::size_t TriggerLabel = 27;

QLayout* Words(frmCcoms& model) {
    auto* grid = new QGridLayout;
    for (int ccom = 0; auto& box : model.txtCcom) {
        const auto& caption = model.LabelOf(ccom);
        const auto same = [&](const Label& label) { return &label == &caption; };
        auto& label = *std::find_if(model.lblMisc.begin(), model.lblMisc.end(), same);
        auto* line = BindLine(box, label.Caption());
        WideFor(*line, 12);
        const int column = ccom / Rows * 3;
        grid->addWidget(BindLabel(label), ccom % Rows, column);
        grid->addWidget(line, ccom % Rows, column + 1);
        grid->setColumnStretch(column + 1, 1);
        if (column > 0) grid->setColumnMinimumWidth(column - 1, 10);
        ++ccom;
    }
    return grid;
}

} // namespace

std::unique_ptr<FormWindow> DrawCcoms(frmCcoms& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    window->mayClose = [&model] { return model.MayDrop(); };
    auto* words = Words(model);
    auto& label = model.lblMisc[TriggerLabel];
    auto* trigger = BindLine(model.txtTrigger, label.Caption());
    WideFor(*trigger, 6);
    trigger->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* foot = Row({BindLabel(label), trigger, BindCheck(model.chkComments), Room(),
                      BindButton(model.cmdSetCcoms), BindButton(model.cmdResetCcoms)});
    auto* column = new QVBoxLayout(window.get());
    column->setSpacing(2 * Gap);
    Put(*column, {words, Room(), foot});
    return window;
}

} // namespace halyard
