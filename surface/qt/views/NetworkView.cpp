#include "surface/bridge/FootLine.h"
#include "surface/bridge/NetworkWindow.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/widgets/PageArea.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>

namespace halyard {

namespace {

QWidget* WaysPage(NetworkWindow& model) {
    auto* choice = BindChoice(model.cmbChosen, model.lblChosen.Caption());
    choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* ways = BindReading(model.txtWays, "What this network does otherwise");
    HighFor(*ways, 7);
    auto* problems = BindReading(model.txtProblems, "Mistakes in bridge.toml");
    HighFor(*problems, 3);
    problems->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return Fill(BindGroup(model.FrameWays),
                {Row({BindLabel(model.lblChosen), Item(choice, 1)}), Item(ways, 1),
                 Row({BindLabel(model.lblProblems), Room(), BindButton(model.cmdReadAgain)}), problems});
}

QWidget* OwnServerPage(ManagementPage& page) {
    auto* grid = new QGridLayout;
    grid->addWidget(BindLabel(page.lblAddress), 0, 0);
    grid->addWidget(BindLine(page.txtAddress, page.lblAddress.Caption()), 0, 1);
    grid->addWidget(BindLabel(page.lblHeader), 1, 0);
    grid->addWidget(BindPassword(page.txtHeader, page.lblHeader.Caption()), 1, 1);
    grid->setColumnStretch(1, 1);
    auto* suspects = BindList(page.lstSuspects, page.lblSuspects.Caption());
    HighFor(*suspects, 3);
    return Fill(BindGroup(page.FrameManagement),
                {grid, BindCheck(page.chkEnforce), BindValue(page.lblEnforce, 2), BindCheck(page.chkSuspend),
                 BindCheck(page.chkWatch), Row({Room(), BindButton(page.cmdApply)}),
                 BindLabel(page.lblSuspects), Item(suspects, 1),
                 Row({Room(), BindButton(page.cmdBanSuspect)})});
}

QWidget* DrawCheckPage(CheckPage& page) {
    auto* exchange = BindLine(page.txtCheckExchange, page.lblCheckExchange.Caption());
    exchange->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    exchange->setMaximumWidth(exchange->fontMetrics().averageCharWidth() * 8);
    auto* rows = BindList(page.lstCheck, page.FrameCheck.Caption());
    HighFor(*rows, 6);
    auto* found = BindValue(page.lblFound, 3);
    NameAfter(*found, "The selected row");
    auto* room = BindLine(page.txtCheckRoom, page.lblCheckRoom.Caption());
    return Fill(
        BindGroup(page.FrameCheck),
        {Row({BindLabel(page.lblCheckRoom), Item(room, 1), BindLabel(page.lblCheckExchange), exchange}),
         Item(rows, 1), found, BindValue(page.lblCheckState),
         Row({BindButton(page.cmdStartCheck), BindButton(page.cmdStopCheck), Room(),
              BindButton(page.cmdSaveHexLog)})});
}

QWidget* MeaningsPage(NetworkWindow& model) {
    auto* meanings = BindReading(model.txtMeanings, model.FrameMeanings.Caption());
    return Fill(BindGroup(model.FrameMeanings), {Item(meanings, 1)});
}

QWidget* ToldPage(NetworkWindow& model) {
    auto* told = BindList(model.foot.lstTold, model.FrameTold.Caption());
    return Fill(BindGroup(model.FrameTold), {Item(told, 1)});
}

} // namespace

std::unique_ptr<FormWindow> DrawNetwork(NetworkWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* pages = new PageArea;
    pages->AddPage(WaysPage(model), model.FrameWays);
    pages->AddPage(OwnServerPage(model.management), model.management.FrameManagement);
    pages->AddPage(DrawCheckPage(model.check), model.check.FrameCheck);
    pages->AddPage(MeaningsPage(model), model.FrameMeanings);
    pages->AddPage(ToldPage(model), model.FrameTold);
    WideFor(*pages, 66);
    Fill(window.get(), {BindOptions(model.optPage, "Page"), Item(pages, 1)});
    return window;
}

} // namespace halyard
