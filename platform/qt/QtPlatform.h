#pragma once

// The real machine. Made once by a program's main, right after its QCoreApplication, and destroyed after
// everything that got sockets and timers from it.

#include "platform/Platform.h"
#include "platform/qt/PosixFiles.h"
#include "platform/qt/QtRandom.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>

namespace halyard {

class QtPlatform : public Platform {
  public:
    /// For a program without a screen: notes go to the error stream, questions are answered with No.
    QtPlatform();
    /// For a program with windows.
    QtPlatform(std::unique_ptr<Dialogs> boxes, std::unique_ptr<Desktop> desktop);

    /// Runs a function on the message loop, some time after the call; called on any thread.
    using Post = std::function<void(std::function<void()>)>;
    /// What makes its databases, set by a main that has any; empty: there are none. They and their threads
    /// end before this.
    std::function<std::unique_ptr<Database>(Post)> databases;

    std::unique_ptr<Socket> NewSocket() override;
    std::unique_ptr<SocketServer> NewServer() override;
    std::unique_ptr<Timer> NewTimer() override;
    std::unique_ptr<Http> NewHttp() override;
    std::unique_ptr<Database> NewDatabase() override;
    std::unique_ptr<Commands> NewCommands() override;
    Random& RandomSource() override { return random; }
    Files& FileSystem() override { return files; }
    Dialogs& Boxes() override { return *boxes; }
    Desktop& DesktopShell() override { return *desktop; }
    std::int64_t Milliseconds() override { return clock.elapsed(); }
    std::int64_t CalendarSeconds() override;
    std::int64_t CalendarMilliseconds() override;

  private:
    QObject keeper; ///< ends what still closes in the background
    QElapsedTimer clock;
    QtRandom random;
    PosixFiles files;
    std::unique_ptr<Dialogs> boxes;
    std::unique_ptr<Desktop> desktop;
};

} // namespace halyard
