#pragma once

// A label that is pressed: a link with its line below, or the bar that opens the menu, whose letters stand
// upright.

#include "surface/qt/bind/Bind.h"

#include <QAbstractButton>
#include <QPainter>

namespace halyard {

class PressLabel : public QAbstractButton {
  public:
    explicit PressLabel(Press look);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// Space presses every button; here Enter does, too.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void PaintBar(QPainter& painter) const;

    Press look;
};

} // namespace halyard
