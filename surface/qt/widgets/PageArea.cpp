#include "surface/qt/widgets/PageArea.h"

#include <QStackedLayout>

namespace halyard {

PageArea::PageArea() : pages(new QStackedLayout) {
    auto* holder = new QWidget;
    holder->setLayout(pages);
    setWidget(holder);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    holder->setAutoFillBackground(false);
}

void PageArea::AddPage(QWidget* page, Frame& frame) {
    pages->addWidget(page);
    auto follow = frame.onView;
    // One page goes when the next one comes, and hands the focus on to it.
    frame.onView = [this, page, &frame, follow] {
        if (!frame.Visible()) return;
        pages->setCurrentWidget(page);
        if (follow) follow();
    };
    frame.onView();
}

QSize PageArea::sizeHint() const { return pages->minimumSize(); }

QSize PageArea::minimumSizeHint() const { return sizeHint().boundedTo(QSize(320, 240)); }

} // namespace halyard
