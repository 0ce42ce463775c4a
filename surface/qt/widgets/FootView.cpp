#include "surface/qt/widgets/FootView.h"

#include <QKeyEvent>
#include <QPainter>

namespace halyard {

namespace {

constexpr int SideMargin = 9; // as wide as a layout's, so that the text stands below the others
constexpr int FewestWide = 16;

} // namespace

FootView::FootView() {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize FootView::sizeHint() const {
    const auto metrics = fontMetrics();
    return {FewestWide * metrics.averageCharWidth(), metrics.lineSpacing() + 6};
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

void FootView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

} // namespace halyard
