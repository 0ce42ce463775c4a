#include "surface/qt/widgets/StripView.h"

#include "surface/qt/bind/ByHand.h"
#include "surface/qt/bind/Follow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace halyard {

namespace {

constexpr int Side = 8;       // pixels left and right of the bars
constexpr int BarHeight = 34; // pixels, at least
constexpr int Leap = 10;      // columns
constexpr int WideColumn = 4; // pixels from which on columns stand apart
constexpr int LegendGap = 10;
constexpr int Faint = 70; // of 255

} // namespace

StripView::StripView(Strips& strips) : strips(strips) {
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize StripView::sizeHint() const {
    const int count = qMax(1, static_cast<int>(strips.All().size()));
    return {fontMetrics().averageCharWidth() * 90, count * (HeadHeight() + BarHeight) + HeadHeight() + 4};
}

int StripView::Left(int column) const {
    const int wide = width() - 2 * Side;
    return Side + wide * column / qMax(1, strips.Columns());
}

int StripView::ColumnAt(int x) const {
    int column = (x - Side) * strips.Columns() / qMax(1, width() - 2 * Side);
    while (column + 1 < strips.Columns() && Left(column + 1) <= x) ++column;
    return column;
}

void StripView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto count = static_cast<int>(strips.All().size());
    if (count == 0) return;
    const int each = (height() - HeadHeight() - 4) / count;
    int top = 2;
    PaintPoint(painter);
    PaintUnknown(painter, QRect(Side, top + HeadHeight(), width() - 2 * Side, each - HeadHeight() - 3));
    for (int index = 0; index < count; ++index, top += each) {
        const auto& strip = strips.All()[static_cast<std::size_t>(index)];
        PaintHead(painter, strip, QRect(Side, top, width() - 2 * Side, HeadHeight()), index == 0);
        PaintBars(painter, strip,
                  QRect(Side, top + HeadHeight(), width() - 2 * Side, each - HeadHeight() - 3));
    }
    PaintMarks(painter, QRect(Side, height() - HeadHeight() - 2, width() - 2 * Side, HeadHeight()));
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

/// The strip's name, what its colours are, and how much the full height is.
void StripView::PaintHead(QPainter& painter, const Strips::Strip& strip, const QRect& place,
                          bool first) const {
    auto bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::Text));
    const auto heading = Shown(strip.heading);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, heading);
    int left = place.left() + QFontMetrics(bold).horizontalAdvance(heading) + 2 * LegendGap;
    painter.setFont(font());
    const int square = fontMetrics().ascent() - 2;
    const auto legend = [&](const QBrush& brush, const QString& word) {
        if (word.isEmpty()) return;
        const QRect box(left, place.top() + (place.height() - square) / 2, square, square);
        painter.fillRect(box, brush);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box.adjusted(0, 0, -1, -1));
        left += square + 4;
        painter.drawText(QRect(left, place.top(), place.right() - left, place.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, word);
        left += fontMetrics().horizontalAdvance(word) + LegendGap;
    };
    for (const auto& part : strip.parts) legend(ToColor(part.color), Shown(part.word));
    if (first) legend(Hatching(), Shown(strips.Unknown));
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, Shown(strip.most));
}

void StripView::PaintBars(QPainter& painter, const Strips::Strip& strip, const QRect& place) const {
    painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), palette().color(QPalette::Text));
    const int floor = place.bottom(); // the line below the bars
    for (int column = 0; column < strips.Columns(); ++column) {
        const int from = Left(column), to = Left(column + 1);
        const int wide = qMax(1, to - from - (to - from >= WideColumn ? 1 : 0));
        const auto& bar = strip.bars[static_cast<std::size_t>(column)];
        int bottom = floor, sum = 0;
        for (std::size_t part = 0; part < bar.size(); ++part) {
            if (bar[part] <= 0) continue;
            sum += bar[part];
            // What is there is seen, however little it is.
            const auto height = static_cast<int>(std::int64_t{place.height()} * sum / qMax(1, strip.full));
            const int top = qMax(place.top(), qMin(bottom - 2, floor - height));
            painter.fillRect(QRect(from, top, wide, bottom - top), ToColor(strip.parts[part].color));
            bottom = top;
        }
    }
}

QBrush StripView::Hatching() const {
    auto faint = palette().color(QPalette::Text);
    faint.setAlpha(Faint);
    return {faint, Qt::BDiagPattern};
}

/// In the first strip, which says whether there was anything to know.
void StripView::PaintUnknown(QPainter& painter, const QRect& place) const {
    const auto& bars = strips.All().front().bars;
    for (int column = 0; column < strips.Columns(); ++column) {
        if (!bars[static_cast<std::size_t>(column)].empty()) continue;
        const int from = Left(column);
        painter.fillRect(QRect(from, place.top(), Left(column + 1) - from, place.height()), Hatching());
    }
}

void StripView::PaintMarks(QPainter& painter, const QRect& place) const {
    painter.setPen(palette().color(QPalette::Text));
    for (const auto& mark : strips.Marks()) {
        const auto word = Shown(mark.word);
        const int wide = fontMetrics().horizontalAdvance(word);
        const int left = qBound(place.left(), Left(mark.column) - wide / 2, place.right() - wide);
        painter.drawText(QRect(left, place.top(), wide + 2, place.height()), Qt::AlignCenter, word);
        painter.drawLine(Left(mark.column), place.top() - 2, Left(mark.column), place.top() + 1);
    }
}

/// Behind the bars, so that none is hidden; a line above and below says where it is.
void StripView::PaintPoint(QPainter& painter) const {
    if (strips.Columns() == 0) return;
    const int from = Left(strips.Point()), to = Left(strips.Point() + 1);
    const int middle = (from + to) / 2;
    const int bottom = height() - HeadHeight() - 3;
    auto ground = palette().color(QPalette::Highlight);
    ground.setAlpha(2 * Faint);
    painter.fillRect(QRect(from, 2, qMax(1, to - from), bottom - 2), ground);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Text));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPolygon(QPolygon({{middle - 5, bottom + 6}, {middle + 5, bottom + 6}, {middle, bottom - 2}}));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void StripView::MoveTo(int column) {
    ByHand(strips, [&] { strips.SetPoint(column); });
}

void StripView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const int point = strips.Point();
    switch (key) {
    case Qt::Key_Left: return MoveTo(point - 1);
    case Qt::Key_Right: return MoveTo(point + 1);
    case Qt::Key_PageUp: return MoveTo(point - Leap);
    case Qt::Key_PageDown: return MoveTo(point + Leap);
    case Qt::Key_Home: return MoveTo(0);
    case Qt::Key_End: return MoveTo(strips.Columns() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (strips.DblClick) ByHand(strips, [this] { strips.DblClick(); });
        return;
    default: break;
    }
    const bool isLetter = key >= Qt::Key_A && key <= Qt::Key_Z;
    if (!isLetter || (event->modifiers() & ~Qt::ShiftModifier) || !strips.KeyDown)
        return QWidget::keyPressEvent(event);
    ByHand(strips, [&] { strips.KeyDown(key); });
}

void StripView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) MoveTo(ColumnAt(event->position().toPoint().x()));
}

void StripView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) MoveTo(ColumnAt(event->position().toPoint().x()));
}

void StripView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && strips.DblClick) ByHand(strips, [this] { strips.DblClick(); });
}

} // namespace halyard
