#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace halyard {

namespace {

QWidget* Setup(frmMain& main) {
    auto& panel = main.connection;
    auto& boxes = main.options.Controls;
    const auto name = [&](std::size_t number) { return panel.lblMisc[number].Caption(); };
    auto* group = BindGroup(panel.FrameMisc[0]);
    auto* grid = new QGridLayout(group);
    for (int row = 0; auto& label : panel.lblMisc) grid->addWidget(BindLabel(label), row++, 0);
    grid->addWidget(BindLine(boxes.txtSN, name(0)), 0, 1, 1, 2);
    grid->addWidget(BindPassword(boxes.txtPW, name(1)), 1, 1, 1, 2);
    grid->addWidget(BindCombo(boxes.cmbServer, name(2)), 2, 1, 1, 2);
    auto* port = BindLine(boxes.txtPort, name(3));
    WideFor(*port, 10);
    port->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    grid->addWidget(port, 3, 1);
    auto* signOn = BindButton(panel.cmdSignOn);
    auto* signOff = BindButton(panel.cmdSignOff);
    SameWidth({signOn, signOff});
    grid->addLayout(Row({Room(), signOn, signOff}), 4, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(12);
    return group;
}

QWidget* LoginOptions(frmMain& main) {
    auto& boxes = main.options.Controls;
    auto* group = BindGroup(main.connection.FrameMisc[1]);
    auto* grid = new QGridLayout(group);
    grid->addWidget(BindCheck(boxes.chkMD5Login), 0, 0);
    grid->addWidget(BindCheck(boxes.chkFullCaps), 1, 0);
    grid->addWidget(BindCheck(boxes.chkSecureIM), 2, 0);
    grid->addWidget(BindCheck(boxes.chkAutoLogin), 0, 1);
    grid->addWidget(BindCheck(boxes.chkNotify), 1, 1);
    grid->setHorizontalSpacing(24);
    grid->setColumnStretch(2, 1);
    return group;
}

} // namespace

QWidget* DrawConnectionPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[0], main.menus.mnuPanels[0].Caption());
    auto* status =
        Fill(BindGroup(main.connection.FrameMisc[2]), {BindValue(main.connection.lblConnectionInfo, 3)});
    return Fill(page, {Setup(main), LoginOptions(main), Item(status, 1)});
}

} // namespace halyard
