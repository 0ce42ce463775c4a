#include "surface/qt/FormWindow.h"

#include "surface/qt/bind/Follow.h"

#include <QCloseEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>

namespace halyard {

namespace {

constexpr int FrameRoom = 40; // pixels for the title bar and the borders

WindowState StateOf(const QWidget& window) {
    if (window.isMinimized()) return WindowState::Minimized;
    return window.isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

} // namespace

FormWindow::FormWindow(Form& form, std::function<void()> closed) : form(form), closed(std::move(closed)) {
    Follow(form, *this, Paint::Ground, [this] {
        setWindowTitle(Shown(this->form.Caption()));
        KeepState();
        FormChanged();
    });
}

void FormWindow::Present() {
    if (!placed) resize(OnScreen(sizeHint()));
    placed = true;
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

QSize FormWindow::OnScreen(QSize wanted) const {
    const auto most = screen()->availableSize() - QSize(0, FrameRoom);
    if (wanted.height() > most.height()) // then it scrolls
        wanted.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return wanted.boundedTo(most);
}

void FormWindow::KeepState() {
    if (!placed || form.State() == StateOf(*this)) return;
    if (form.State() == WindowState::Normal) setWindowState(Qt::WindowNoState);
    if (form.State() == WindowState::Minimized) setWindowState(Qt::WindowMinimized);
    if (form.State() == WindowState::Maximized) setWindowState(Qt::WindowMaximized);
}

void FormWindow::ReportState() {
    // A hidden window stands neither one way nor the other.
    if (isVisible()) form.SetState(StateOf(*this));
}

void FormWindow::closeEvent(QCloseEvent* event) {
    if (mayClose && !mayClose()) return event->ignore();
    event->accept();
    if (closed) closed();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Told after the event: the form may hide the window for it.
    if (event->type() == QEvent::WindowStateChange) QTimer::singleShot(0, this, [this] { ReportState(); });
}

} // namespace halyard
