#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"
#include "surface/qt/views/PermGrid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace halyard {

namespace {

QWidget* Ops(frmMain& main) {
    const auto& name = main.people.FrameMisc[0].Caption();
    auto* box = BindLine(main.people.txtAddOp, "Add to " + name);
    auto* list = BindList(main.options.Controls.lstOps, name);
    HighFor(*list, 4);
    return Fill(BindGroup(main.people.FrameMisc[0]), {box, Item(list, 1)});
}

QWidget* Immunes(frmMain& main) {
    const auto& name = main.people.FrameMisc[2].Caption();
    auto* box = BindLine(main.people.txtAddImm, "Add to " + name);
    auto* list = BindList(main.options.Controls.lstImms, name);
    HighFor(*list, 3);
    return Fill(BindGroup(main.people.FrameMisc[2]),
                {box, Item(list, 1), BindCheck(main.options.Controls.chkAutoImm)});
}

QWidget* Permissions(frmMain& main) {
    auto& panel = main.people;
    auto* current = BindValue(panel.lblCurrentOp);
    if (current->accessibleName().isEmpty()) NameAfter(*current, "Current op");
    auto lettering = current->font();
    lettering.setBold(true);
    current->setFont(lettering);
    auto* buttons = Row({Item(current, 1), BindButton(panel.cmdSetPerms), BindButton(panel.cmdDefaultPerms),
                         BindButton(panel.cmdFullPerms)});
    return Fill(BindGroup(panel.FrameMisc[1]), {PermGrid(panel.chkPerm), buttons});
}

} // namespace

QLayout* PermGrid(std::deque<CheckBox>& chkPerm) {
    auto* grid = new QGridLayout;
    constexpr int Columns = 5;
    for (int index = 0; auto& box : chkPerm) {
        grid->addWidget(BindCheck(box), index / Columns, index % Columns);
        ++index;
    }
    for (int column = 0; column < Columns; ++column) grid->setColumnStretch(column, 1);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    return grid;
}

QWidget* DrawPeoplePanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[2], main.menus.mnuPanels[2].Caption());
    auto* ops = Ops(main);
    auto* permissions = Permissions(main);
    return Fill(page, {Item(Row({Item(ops, 1), Item(Immunes(main), 1)}), 1), permissions});
}

} // namespace halyard
