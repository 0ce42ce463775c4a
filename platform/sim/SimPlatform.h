#pragma once

// The machine of one party in a simulated world: the bot's, the service's. The world must outlive it.

#include "platform/Platform.h"
#include "platform/sim/ScriptedDialogs.h"
#include "platform/sim/SimCommands.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimFiles.h"
#include "platform/sim/SimRandom.h"
#include "platform/sim/SimTimer.h"
#include "platform/sim/SimWorld.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace halyard {

class SimPlatform : public Platform {
  public:
    explicit SimPlatform(SimWorld& world) : random(world.chance.Next()), world(world) {}
    SimPlatform(const SimPlatform&) = delete;
    SimPlatform& operator=(const SimPlatform&) = delete;

    SimRandom random;
    SimFiles disk;
    ScriptedDialogs dialogs;
    SimDesktop desktop;
    SimTicks ticks;
    SimPrograms programs;
    /// What makes its databases, which answer at once; empty: it has none.
    std::function<std::unique_ptr<Database>()> databases;

    std::unique_ptr<Socket> NewSocket() override;
    std::unique_ptr<SocketServer> NewServer() override;
    std::unique_ptr<Timer> NewTimer() override;
    std::unique_ptr<Http> NewHttp() override;
    std::unique_ptr<Database> NewDatabase() override { return databases ? databases() : nullptr; }
    std::unique_ptr<Commands> NewCommands() override {
        return std::make_unique<SimCommands>(world.clock, programs);
    }
    Random& RandomSource() override { return random; }
    Files& FileSystem() override { return disk; }
    Dialogs& Boxes() override { return dialogs; }
    Desktop& DesktopShell() override { return desktop; }
    std::int64_t Milliseconds() override { return world.Now(); }
    std::int64_t CalendarSeconds() override { return CalendarMilliseconds() / 1000; }
    std::int64_t CalendarMilliseconds() override { return 1'800'000'000'000 + world.Now(); }

  private:
    SimWorld& world;
};

} // namespace halyard
