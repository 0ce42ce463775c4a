#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace halyard {

namespace {

/// A small box with its caption before it.
QHBoxLayout* Number(Label& caption, TextBox& box) {
    auto* line = BindLine(box, caption.Caption());
    WideFor(*line, 8);
    line->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    return Row({BindLabel(caption), line, Room()});
}

QLayout* Switches(frmMain& main) {
    auto& boxes = main.options.Controls;
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(1);
    grid->setHorizontalSpacing(3 * Gap);
    for (int row = 0; auto& box : boxes.chkPartial) grid->addWidget(BindCheck(box), row++, 0);
    for (int row = 0; auto& box : boxes.chkChain) grid->addWidget(BindCheck(box), row++, 1);
    grid->addWidget(BindCheck(boxes.chkChatSendOn), 0, 2);
    grid->addWidget(BindCheck(boxes.chkAutoUnrate), 1, 2);
    grid->addWidget(BindCheck(boxes.chkABOnUnrate), 2, 2);
    grid->addLayout(Number(main.other.lblMisc[0], boxes.txtUnrate), 3, 2);
    auto* pause = Number(main.other.lblMisc[2], boxes.txtBP);
    pause->insertWidget(2, BindButton(main.other.cmdSetBP));
    grid->addLayout(pause, 4, 2);
    grid->setColumnStretch(2, 1);
    return grid;
}

QWidget* BasicOptions(frmMain& main) {
    auto& panel = main.other;
    auto* grid = new QGridLayout;
    grid->addWidget(BindLabel(panel.lblMisc[1]), 0, 0);
    grid->addWidget(BindLine(main.options.Controls.txtCurrentUser, panel.lblMisc[1].Caption()), 0, 1);
    grid->addWidget(BindButton(panel.cmdSetUser), 0, 2);
    grid->addWidget(BindLabel(panel.lblMisc[3]), 1, 0);
    grid->addWidget(BindLine(panel.txtInternalCommand, panel.lblMisc[3].Caption()), 1, 1, 1, 2);
    return Fill(BindGroup(panel.FrameMisc[0]), {Switches(main), grid});
}

QWidget* Fonts(frmMain& main) {
    auto& panel = main.other;
    auto& boxes = main.options.Controls;
    auto* grid = new QGridLayout;
    const auto name = [&](std::size_t number) { return panel.lblMisc[number].Caption(); };
    grid->addWidget(BindLabel(panel.lblMisc[4]), 0, 0);
    grid->addWidget(BindLine(boxes.txtBGColor, name(4)), 0, 1);
    grid->addWidget(BindLabel(panel.lblMisc[5]), 0, 2);
    grid->addWidget(BindLine(boxes.txtFontColor, name(5)), 0, 3);
    grid->addWidget(BindPressed(panel.lblHexColorLink, Press::Link), 0, 4);
    grid->addWidget(BindLabel(panel.lblMisc[6]), 1, 0);
    grid->addWidget(BindLine(boxes.txtFontType, name(6)), 1, 1, 1, 3);
    grid->addWidget(BindButton(panel.cmdGetFont), 1, 4);
    auto* row = Row({BindCheck(boxes.chkBold), BindCheck(boxes.chkItalics), BindCheck(boxes.chkUnderline),
                     BindCheck(boxes.chkStrikethrough), Room(), BindButton(panel.cmdSetFont),
                     BindButton(panel.cmdResetFont)});
    return Fill(BindGroup(panel.FrameMisc[1]), {grid, row});
}

QWidget* LoadAndSave(frmMain& main) {
    auto& panel = main.other;
    auto& boxes = main.options.Controls;
    auto* grid = new QGridLayout;
    grid->addWidget(BindCheck(boxes.chkAutoSave), 0, 0);
    grid->addWidget(BindLine(boxes.txtAutoSaveFile, "Auto save settings file"), 0, 1);
    grid->addWidget(BindCheck(boxes.chkAutoSaveBans), 1, 0);
    grid->addWidget(BindLine(boxes.txtEjectListFileName, "Auto-save eject lists file"), 1, 1);
    grid->setColumnStretch(1, 1);
    auto* row = Row({BindButton(panel.cmdNewSettings), BindButton(panel.cmdLoadSettings),
                     BindButton(panel.cmdSaveSettings), Room(), BindButton(panel.cmdLoadGannetSettings)});
    return Fill(BindGroup(panel.FrameMisc[2]), {grid, row});
}

} // namespace

QWidget* DrawOtherPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[6], main.menus.mnuPanels[6].Caption());
    auto* basic = BasicOptions(main);
    auto* fonts = Fonts(main);
    return Fill(page, {basic, fonts, LoadAndSave(main), Room()});
}

} // namespace halyard
