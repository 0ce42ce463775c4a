#include "platform/qt/QtPlatform.h"

#include "platform/qt/NoBoxes.h"
#include "platform/qt/QtCommands.h"
#include "platform/qt/QtHttp.h"
#include "platform/qt/QtTcpServer.h"
#include "platform/qt/QtTcpSocket.h"
#include "platform/qt/QtTimerAdapter.h"

#include <QDateTime>

namespace halyard {

QtPlatform::QtPlatform() : QtPlatform(std::make_unique<NoBoxes>(), std::make_unique<NoDesktop>()) {}

QtPlatform::QtPlatform(std::unique_ptr<Dialogs> boxes, std::unique_ptr<Desktop> desktop)
    : boxes(std::move(boxes)), desktop(std::move(desktop)) {
    clock.start();
}

std::unique_ptr<Socket> QtPlatform::NewSocket() { return std::make_unique<QtTcpSocket>(&keeper); }

std::unique_ptr<SocketServer> QtPlatform::NewServer() { return std::make_unique<QtTcpServer>(&keeper); }

std::unique_ptr<Timer> QtPlatform::NewTimer() { return std::make_unique<QtTimerAdapter>(&keeper); }

std::unique_ptr<Http> QtPlatform::NewHttp() { return std::make_unique<QtHttp>(&keeper); }

std::unique_ptr<Commands> QtPlatform::NewCommands() { return std::make_unique<QtCommands>(); }

std::unique_ptr<Database> QtPlatform::NewDatabase() {
    if (!databases) return nullptr;
    return databases([this](std::function<void()> work) {
        QMetaObject::invokeMethod(&keeper, std::move(work), Qt::QueuedConnection);
    });
}

std::int64_t QtPlatform::CalendarSeconds() { return QDateTime::currentSecsSinceEpoch(); }

std::int64_t QtPlatform::CalendarMilliseconds() { return QDateTime::currentMSecsSinceEpoch(); }

} // namespace halyard
