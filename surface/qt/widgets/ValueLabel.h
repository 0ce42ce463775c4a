#pragma once

// A label for texts from outside, as long as they like: the window never grows for one. What does not fit is
// elided, and the whole text is its tool tip.

#include <QLabel>

namespace halyard {

class ValueLabel : public QLabel {
  public:
    explicit ValueLabel(int lines);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int lines;
};

} // namespace halyard
