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

constexpr int StatRows = 11; // of counters

QWidget* RecentActions(frmMain& main) {
    auto* list = BindList(main.counters.lstActions, main.stats.FrameMisc[0].Caption());
    HighFor(*list, 4);
    return Fill(BindGroup(main.stats.FrameMisc[0]),
                {Item(list, 1), Row({Room(), BindButton(main.stats.cmdClearActions)})});
}

QWidget* BasicStats(frmMain& main) {
    auto& panel = main.stats;
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(3);
    for (int index = 0; index < Counters::StatCount; ++index) {
        const auto number = static_cast<std::size_t>(index);
        const int column = index / StatRows * 3;
        auto* value = BindValue(main.counters.lblStat[number]);
        value->setAccessibleDescription(Shown(panel.lblMisc[number].Caption()));
        grid->addWidget(BindLabel(panel.lblMisc[number]), index % StatRows, column);
        grid->addWidget(value, index % StatRows, column + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    grid->setColumnMinimumWidth(2, 12);
    auto* group = BindGroup(panel.FrameMisc[1]);
    auto* buttons = Row({BindButton(panel.cmdClearStats), Room(), BindButton(panel.cmdClearMsgQueue),
                         BindButton(panel.cmdClearBanQueue), BindButton(panel.cmdClearTimeBans)});
    return Fill(group, {grid, buttons});
}

} // namespace

QWidget* DrawStatsPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[5], main.menus.mnuPanels[5].Caption());
    auto* actions = RecentActions(main);
    return Fill(page, {Item(actions, 1), BasicStats(main)});
}

} // namespace halyard
