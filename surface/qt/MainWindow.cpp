#include "surface/qt/MainWindow.h"

#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"
#include "surface/qt/SideMenu.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"
#include "surface/qt/widgets/PageArea.h"

#include <QAction>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QShortcut>

namespace halyard {

namespace {

constexpr auto DrawPanels = {DrawConnectionPanel, DrawChatsPanel, DrawPeoplePanel, DrawAutobanPanel,
                             DrawEjectListsPanel, DrawStatsPanel, DrawOtherPanel};

double Part(int value, int least, int most) { return static_cast<double>(value - least) / (most - least); }

} // namespace

MainWindow::MainWindow(frmMain& main, Bridge* bridge)
    : FormWindow(main.form, [&main] { main.Form_Unload(); }), main(main),
      side(new SideMenu(main.slide, bridge ? &bridge->bar.lblBridge : nullptr)), pages(new PageArea),
      rated(RatedRooms()) {
    auto frame = main.FrameTabs.begin();
    for (auto draw : DrawPanels) pages->AddPage(draw(main), *frame++);
    auto* left = Column({Item(pages, 1), rated});
    left->setSpacing(0);
    if (bridge) AddBridge(*bridge, *left);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addLayout(left, 1);
    row->addWidget(side);
    BindMenus();
    BindKeys();
    FormChanged();
}

/// The row of the network is seen with the panel of the connection only.
void MainWindow::AddBridge(Bridge& bridge, QBoxLayout& column) {
    auto* network = DrawNetworkRow(bridge.row);
    Put(column, {network, DrawFootLine(bridge.foot)});
    auto& panel = main.FrameTabs.front();
    BindMenu(bridge.bar.mnuBridge, this);
    auto* open = new QShortcut(QKeySequence(QStringLiteral("Ctrl+B")), this);
    connect(open, &QShortcut::activated, this, [&bridge] { bridge.bar.mnuBridge.Popup(); });
    auto follow = panel.onView;
    panel.onView = [network, &panel, follow] {
        if (follow) follow();
        network->setVisible(panel.Visible());
    };
}

QWidget* MainWindow::RatedRooms() {
    auto* place = new QWidget;
    auto* grid = new QGridLayout(place);
    auto margins = grid->contentsMargins();
    margins.setTop(0);
    grid->setContentsMargins(margins);
    grid->setVerticalSpacing(4);
    for (int type : {0, 1}) {
        auto& label = main.rates.lblRated[static_cast<std::size_t>(type)];
        auto* list = BindList(main.rates.lstRated[static_cast<std::size_t>(type)], label.Caption());
        list->setFixedHeight(list->fontMetrics().lineSpacing() * 3 + 10);
        grid->addWidget(BindLabel(label), 0, type);
        grid->addWidget(list, 1, type);
    }
    place->hide();
    return place;
}

void MainWindow::BindMenus() {
    auto& menus = main.menus;
    for (auto* menu : {&menus.mnuFile, &menus.mnuPanel, &menus.mnuQuickLinks, &menus.mnuHelp,
                       &menus.mnuEjectListChats, &menus.mnuEjectList, &menus.mnuChats})
        BindMenu(*menu, this);
    BindMenu(menus.mnuSystemTray, this, MenuPlace::Pointer);
}

void MainWindow::BindKeys() {
    const auto bind = [this](const std::string& entry, const QKeySequence& keys) {
        auto* action = findChild<QAction*>(Shown(entry));
        action->setShortcut(keys);
        addAction(action);
    };
    for (int number = 1; const auto& entry : main.menus.mnuPanels)
        bind(entry.Name, QKeySequence(QStringLiteral("Ctrl+%1").arg(number++)));
    bind(main.menus.mnuNewSettings.Name, QKeySequence::New);
    bind(main.menus.mnuLoadSettings.Name, QKeySequence::Open);
    bind(main.menus.mnuSaveSettings.Name, QKeySequence::Save);
    bind(main.menus.mnuExit.Name, QKeySequence(QStringLiteral("Ctrl+Q")));
    bind(main.menus.mnuHelpFile.Name, QKeySequence(QStringLiteral("F1")));
    auto* reach = new QShortcut(QKeySequence(QStringLiteral("F10")), this);
    connect(reach, &QShortcut::activated, side, [this] { side->Reach(); });
}

void MainWindow::FormChanged() {
    // Where the screen leaves no room the menu lies over the panel's edge, as long as it is out.
    pages->setHorizontalScrollBarPolicy(form.Width() > MenuSlide::ClosedWidth ? Qt::ScrollBarAlwaysOff
                                                                              : Qt::ScrollBarAsNeeded);
    const int wider = side->SlideTo(Part(form.Width(), MenuSlide::ClosedWidth, MenuSlide::OpenWidth));
    const bool show = form.Height() > RateLists::PlainHeight;
    const int high = rated->sizeHint().height();
    const int higher = show == !rated->isHidden() ? 0 : show ? high : -high;
    if (higher != 0) rated->setVisible(show);
    if (wider != 0 || higher != 0) Grow(wider, higher);
}

void MainWindow::Grow(int width, int height) {
    if (!isVisible() || isMaximized() || isMinimized()) return;
    layout()->activate();
    const auto least = OnScreen(sizeHint());
    auto wanted = OnScreen(size() + QSize(width, height));
    if (width < 0) wanted.setWidth(qMax(wanted.width(), least.width()));
    if (height < 0) wanted.setHeight(qMax(wanted.height(), least.height()));
    resize(wanted);
}

} // namespace halyard
