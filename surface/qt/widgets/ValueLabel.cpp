#include "surface/qt/widgets/ValueLabel.h"

#include <QPainter>
#include <QTextOption>

namespace halyard {

namespace {

constexpr int FewestLetters = 6;
constexpr int UsualLetters = 16;

} // namespace

ValueLabel::ValueLabel(int lines) : lines(lines) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize ValueLabel::sizeHint() const {
    const auto letters = qBound(FewestLetters, static_cast<int>(text().size()), UsualLetters);
    const auto metrics = fontMetrics();
    return {letters * metrics.averageCharWidth(), lines * metrics.lineSpacing() + 2};
}

QSize ValueLabel::minimumSizeHint() const {
    const auto metrics = fontMetrics();
    return {FewestLetters * metrics.averageCharWidth(), lines * metrics.lineSpacing() + 2};
}

void ValueLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const auto metrics = fontMetrics();
    auto shown = text();
    if (lines == 1) shown = metrics.elidedText(shown, Qt::ElideRight, width());
    QTextOption option(lines == 1 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(lines == 1 ? QTextOption::NoWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(QRectF(contentsRect()), shown, option);
    const bool cut = metrics.horizontalAdvance(text()) > lines * width();
    const auto tip = cut ? text() : QString();
    if (toolTip() != tip) setToolTip(tip);
}

} // namespace halyard
