#pragma once

// A line of a window, or a part of one, that is pressed like a button and looks like a text; what is too long
// is elided.

#include <QAbstractButton>

namespace halyard {

class FootView : public QAbstractButton {
  public:
    /// So many average letters wide, at least.
    explicit FootView(int letters);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// Space presses every button; here Enter does, too. Left and Right go to the neighbours.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void GoBeside(int step);

    int letters;
};

} // namespace halyard
