#include "surface/qt/widgets/FootView.h"

#include <QKeyEvent>
#include <QPainter>

namespace halyard {

namespace {

constexpr int SideMargin = 6;

} // namespace

FootView::FootView(int letters) : letters(letters) {
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Window); // the colour of what it says
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

/// A whole text, as long as it is a short one.
QSize FootView::sizeHint() const {
    const auto least = minimumSizeHint();
    const auto whole = fontMetrics().horizontalAdvance(text()) + 2 * SideMargin + 2;
    return {qBound(least.width(), whole, 3 * least.width()), least.height()};
}

QSize FootView::minimumSizeHint() const {
    const auto metrics = fontMetrics();
    return {letters * metrics.averageCharWidth() + 2 * SideMargin, metrics.lineSpacing() + 6};
}

void FootView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const auto place = rect().adjusted(SideMargin, 0, -SideMargin, 0);
    const auto shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, shown);
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void FootView::GoBeside(int step) {
    const auto all = parentWidget()->findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    const auto place = all.indexOf(static_cast<QAbstractButton*>(this)) + step;
    if (place >= 0 && place < all.size()) all[place]->setFocus(Qt::OtherFocusReason);
}

void FootView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Left) return GoBeside(-1);
    if (event->key() == Qt::Key_Right) return GoBeside(1);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

} // namespace halyard
