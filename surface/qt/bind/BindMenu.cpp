#include "surface/qt/bind/Bind.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>

namespace halyard {

namespace {

QPoint Place(MenuPlace place) {
    const auto pointer = QCursor::pos();
    const auto* focus = place == MenuPlace::Focus ? QApplication::focusWidget() : nullptr;
    if (!focus || focus->rect().contains(focus->mapFromGlobal(pointer))) return pointer;
    return focus->mapToGlobal(
        QPoint(focus->width() / 2, qMin(focus->height(), focus->fontMetrics().height())));
}

void Add(QMenu& menu, Menu& entry) {
    if (entry.Caption() == "-") {
        menu.addSeparator()->setObjectName(Shown(entry.Name));
        return;
    }
    auto* action = menu.addAction(ShownCaption(entry.Caption()));
    action->setObjectName(Shown(entry.Name));
    QObject::connect(action, &QAction::triggered, action, [&entry] {
        LeaveBox();
        if (entry.Click) ByHand(entry, [&] { entry.Click(); });
    });
}

} // namespace

QMenu* BindMenu(Menu& menu, QWidget* parent, MenuPlace place) {
    auto* widget = new QMenu(ShownCaption(menu.Caption()), parent);
    widget->setObjectName(Shown(menu.Name));
    NameAfter(*widget, menu.Caption());
    for (auto* entry : menu.Items) Add(*widget, *entry);
    menu.onPopup = [widget, place] { widget->popup(Place(place)); };
    QObject::connect(widget, &QObject::destroyed, [&menu] { menu.onPopup = nullptr; });
    return widget;
}

} // namespace halyard
