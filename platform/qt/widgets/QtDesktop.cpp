#include "platform/qt/widgets/QtDesktop.h"

#include "base/Latin1.h"
#include "platform/qt/QuitLater.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QUrl>

namespace halyard {

namespace {

constexpr int NoteTime = 10000; // ms

/// 0 for what the main window does not know. Desktops report no right double-click.
int MouseMessage(QSystemTrayIcon::ActivationReason reason) {
    switch (reason) {
    case QSystemTrayIcon::Trigger: return 514;
    case QSystemTrayIcon::DoubleClick: return 515;
    case QSystemTrayIcon::Context: return 517;
    default: return 0;
    }
}

} // namespace

QtDesktop::QtDesktop() {
    noteEnd.setSingleShot(true);
    noteEnd.setInterval(NoteTime);
    QObject::connect(&noteEnd, &QTimer::timeout, &noteEnd, [this] {
        if (!wanted) icon->hide();
    });
}

QtDesktop::~QtDesktop() = default;

bool QtDesktop::OpenPage(const std::string& address) {
    return QDesktopServices::openUrl(QUrl::fromUserInput(QString::fromStdString(ToUtf8(address))));
}

bool QtDesktop::HasTray() { return QSystemTrayIcon::isSystemTrayAvailable(); }

void QtDesktop::AddTrayIcon(const std::string& tip) {
    if (!icon) MakeIcon();
    wanted = true;
    SetTrayTip(tip);
    icon->show();
}

void QtDesktop::MakeIcon() {
    auto picture = QApplication::windowIcon();
    if (picture.isNull()) picture = QApplication::style()->standardIcon(QStyle::SP_ComputerIcon);
    icon = std::make_unique<QSystemTrayIcon>(picture);
    QObject::connect(icon.get(), &QSystemTrayIcon::activated, icon.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         auto message = MouseMessage(reason);
                         auto handler = onTrayEvent;
                         if (message != 0 && handler) handler(message);
                     });
}

void QtDesktop::SetTrayTip(const std::string& tip) {
    if (icon) icon->setToolTip(QString::fromStdString(ToUtf8(tip)));
}

void QtDesktop::RemoveTrayIcon() {
    // Hidden, not destroyed: this may run inside the icon's own handler.
    wanted = false;
    if (icon) icon->hide();
}

void QtDesktop::Notify(const std::string& title, const std::string& text) {
    if (!HasTray()) return;
    if (!icon) MakeIcon();
    icon->show(); // a note needs one
    icon->showMessage(QString::fromStdString(ToUtf8(title)), QString::fromStdString(ToUtf8(text)),
                      QSystemTrayIcon::Warning, NoteTime);
    noteEnd.start();
}

void QtDesktop::Copy(const std::string& text) {
    QApplication::clipboard()->setText(QString::fromStdString(ToUtf8(text)));
}

void QtDesktop::Quit() { QuitLater(); }

} // namespace halyard
