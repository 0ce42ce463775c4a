#pragma once

// Strips of bars over time with a movable point, drawn by hand. Left and Right move the point by a column,
// Page Up and Page Down by ten, Home and End to the first and the last; so does the mouse.

#include "platform/Strips.h"

#include <QPainter>
#include <QWidget>

namespace halyard {

class StripView : public QWidget {
  public:
    /// `strips` must live longer.
    explicit StripView(Strips& strips);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void PaintHead(QPainter& painter, const Strips::Strip& strip, const QRect& place, bool first) const;
    void PaintBars(QPainter& painter, const Strips::Strip& strip, const QRect& place) const;
    void PaintUnknown(QPainter& painter, const QRect& place) const;
    QBrush Hatching() const;
    void PaintMarks(QPainter& painter, const QRect& place) const;
    void PaintPoint(QPainter& painter) const;
    int HeadHeight() const { return fontMetrics().lineSpacing() + 2; }
    /// Where column `column` begins, in pixels; that behind the last one is the right end.
    int Left(int column) const;
    int ColumnAt(int x) const;
    void MoveTo(int column);

    Strips& strips;
};

} // namespace halyard
