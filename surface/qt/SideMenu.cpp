#include "surface/qt/SideMenu.h"

#include "surface/look/MenuSlide.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"

#include <QAbstractButton>
#include <QEvent>

namespace halyard {

SideMenu::SideMenu(MenuSlide& slide, Label* further)
    : bar(BindPressed(slide.lblContents, Press::Bar)), menu(BindPlace(slide.FrameContents, "Menu")) {
    bar->setParent(this);
    bar->setVisible(slide.lblContents.Visible());
    menu->setParent(this);
    menu->setAutoFillBackground(true);
    menu->setVisible(slide.FrameContents.Visible());
    auto* column = new QVBoxLayout(menu);
    column->setSpacing(10);
    QAbstractButton* last = nullptr;
    const auto add = [column](Label& label) {
        auto* entry = BindPressed(label, Press::Bar);
        entry->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        column->addWidget(entry);
        return entry;
    };
    for (auto& label : slide.lblMenu) {
        last = add(label);
        if (!first) first = last;
    }
    if (further) add(*further);
    column->addStretch();
    column->addWidget(BindPressed(slide.lblSite, Press::Link), 0, Qt::AlignHCenter);
    menu->installEventFilter(this);
    // Who opens or closes it by keyboard goes on from there.
    connect(bar, &QAbstractButton::clicked, first, [this] { first->setFocus(); });
    connect(last, &QAbstractButton::clicked, bar, [this] { bar->setFocus(); });
    setMinimumHeight(qMax(bar->sizeHint().height(), menu->sizeHint().height()));
    setFixedWidth(bar->sizeHint().width());
}

int SideMenu::SlideTo(double part) {
    slid = part;
    if (window()->isMaximized() && !menu->isHidden()) part = 1;
    const int closed = bar->sizeHint().width();
    const int open = qMax(menu->sizeHint().width(), 2 * closed);
    const int before = width();
    setFixedWidth(closed + static_cast<int>((open - closed) * qBound(0.0, part, 1.0)));
    return width() - before;
}

void SideMenu::Reach() {
    if (bar->isVisible())
        bar->click();
    else
        first->setFocus();
}

bool SideMenu::eventFilter(QObject*, QEvent* event) {
    const bool switched = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (switched && window()->isMaximized()) SlideTo(slid);
    return false;
}

void SideMenu::resizeEvent(QResizeEvent*) {
    bar->setGeometry(rect());
    menu->setGeometry(0, 0, qMax(width(), menu->sizeHint().width()), height());
}

} // namespace halyard
