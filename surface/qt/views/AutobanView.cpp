#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>

namespace halyard {

namespace {

QWidget* Autobans(frmMain& main) {
    auto& panel = main.autobans;
    const auto& name = panel.FrameMisc[0].Caption();
    auto* box = BindLine(panel.txtAddAB, "Add to " + name);
    auto* list = BindList(main.options.Controls.lstABs, name);
    HighFor(*list, 6);
    return Fill(BindGroup(panel.FrameMisc[0]),
                {box, Item(list, 1), BindLabel(panel.lblMisc[0]),
                 BindOptions(main.options.Controls.optAB, panel.lblMisc[0].Caption())});
}

QWidget* Autowords(frmMain& main) {
    auto& panel = main.autobans;
    auto& boxes = main.options.Controls;
    const auto& name = panel.FrameMisc[2].Caption();
    auto* box = BindLine(panel.txtAddAW, "Add to " + name);
    auto* list = BindList(boxes.lstAWs, name);
    HighFor(*list, 6);
    return Fill(BindGroup(panel.FrameMisc[2]),
                {box, Item(list, 1), BindCheck(boxes.chkAWOn), BindCheck(boxes.chkIncludeHTML),
                 BindCheck(boxes.chkWordBanAll)});
}

QWidget* OtherOptions(frmMain& main) {
    auto& boxes = main.options.Controls;
    auto* length = BindLine(boxes.txtCharBan, boxes.chkCharBan.Caption() + " length");
    length->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    WideFor(*length, 6);
    return Fill(BindGroup(main.autobans.FrameMisc[1]),
                {Row({BindCheck(boxes.chkBanGhosters), Room(), BindCheck(boxes.chkBanICQs), Room(),
                      BindCheck(boxes.chkCharBan), length})});
}

} // namespace

QWidget* DrawAutobanPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[3], main.menus.mnuPanels[3].Caption());
    auto* lists = Row({Item(Autobans(main), 1), Item(Autowords(main), 1)});
    return Fill(page, {Item(lists, 1), OtherOptions(main)});
}

} // namespace halyard
