#include "surface/qt/widgets/PressLabel.h"

#include <QKeyEvent>
#include <QPainter>

namespace halyard {

namespace {

constexpr int Margin = 4;

} // namespace

PressLabel::PressLabel(Press look) : look(look) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    auto lettering = font();
    if (look == Press::Link)
        lettering.setUnderline(true);
    else
        lettering.setBold(true);
    setFont(lettering);
    setSizePolicy(look == Press::Link ? QSizePolicy::Maximum : QSizePolicy::Preferred,
                  look == Press::Link ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

QSize PressLabel::sizeHint() const {
    const auto text = fontMetrics().size(0, this->text());
    return text + QSize(look == Press::Link ? 2 * Margin : 5 * Margin, 2 * Margin);
}

void PressLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    auto role = QPalette::WindowText;
    if (look == Press::Bar) {
        PaintBar(painter);
        role = QPalette::ButtonText;
    }
    painter.setPen(palette().color(role));
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(role), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void PressLabel::PaintBar(QPainter& painter) const {
    auto ground = palette().color(QPalette::Button);
    if (underMouse()) ground = ground.lighter(125);
    painter.fillRect(rect(), ground);
}

void PressLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

} // namespace halyard
