#pragma once

// The place of pages of which one is seen. It asks for the room that the largest needs, and where the screen
// has less it scrolls.

#include "platform/Controls.h"

#include <QScrollArea>

class QStackedLayout;

namespace halyard {

class PageArea : public QScrollArea {
  public:
    PageArea();
    /// The page is seen when its frame is visible.
    void AddPage(QWidget* page, Frame& frame);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    QStackedLayout* pages;
};

} // namespace halyard
