#pragma once

// A line of a window that is pressed like a button and looks like a text; what is too long is elided.

#include <QAbstractButton>

namespace halyard {

class FootView : public QAbstractButton {
  public:
    FootView();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// Space presses every button; here Enter does, too.
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace halyard
