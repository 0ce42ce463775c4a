#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"

#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>

namespace halyard {

namespace {

QWidget* CurrentList(EjectListsPanel& panel) {
    auto* list = BindList(panel.lstEjected, panel.FrameMisc[0].Caption());
    HighFor(*list, 8);
    return Fill(BindGroup(panel.FrameMisc[0]),
                {BindValue(panel.lblEjectListChat), Item(list, 1), BindValue(panel.lblBanCount),
                 Row({Item(BindButton(panel.cmdClearList), 1), Item(BindButton(panel.cmdUnbanAll), 1)})});
}

QWidget* Lists(EjectListsPanel& panel) {
    auto* list = BindList(panel.lstEjectListChats, panel.FrameMisc[1].Caption());
    HighFor(*list, 8);
    return Fill(BindGroup(panel.FrameMisc[1]),
                {Item(list, 1),
                 Row({Item(BindButton(panel.cmdSaveEjects), 1), Item(BindButton(panel.cmdLoadEjects), 1)})});
}

} // namespace

QWidget* DrawEjectListsPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[4], main.menus.mnuPanels[4].Caption());
    auto* current = CurrentList(main.ejects);
    return Fill(page, {Item(Row({Item(current, 1), Item(Lists(main.ejects), 1)}), 1)});
}

} // namespace halyard
