#pragma once

// All that Halyard gets from the machine it runs on, handed in once at start. Nothing else reads a clock,
// opens a socket, draws a random number or touches a file.

#include "platform/Commands.h"
#include "platform/Database.h"
#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Http.h"
#include "platform/Random.h"
#include "platform/Socket.h"
#include "platform/Timer.h"

#include <cstdint>
#include <memory>

namespace halyard {

class Platform {
  public:
    virtual ~Platform() = default;

    virtual std::unique_ptr<Socket> NewSocket() = 0;
    virtual std::unique_ptr<SocketServer> NewServer() = 0;
    virtual std::unique_ptr<Timer> NewTimer() = 0;
    virtual std::unique_ptr<Http> NewHttp() = 0;
    /// Null where records can't be kept.
    virtual std::unique_ptr<Database> NewDatabase() = 0;
    /// Null where no other programs can be started.
    virtual std::unique_ptr<Commands> NewCommands() = 0;
    virtual Random& RandomSource() = 0;
    virtual Files& FileSystem() = 0;
    virtual Dialogs& Boxes() = 0;
    virtual Desktop& DesktopShell() = 0;
    /// Milliseconds since some fixed moment, never going back; for transcripts and rate windows.
    virtual std::int64_t Milliseconds() = 0;
    /// Seconds since 1970 by the machine's calendar clock, which may be set and go back; for what is kept.
    virtual std::int64_t CalendarSeconds() = 0;
    /// The same clock in milliseconds.
    virtual std::int64_t CalendarMilliseconds() = 0;
};

} // namespace halyard
