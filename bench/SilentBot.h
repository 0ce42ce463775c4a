#pragma once

// The control with the command engine on it and nobody above: what a window would show goes nowhere.

#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "platform/sim/SimPlatform.h"
#include "state/Counters.h"
#include "state/Options.h"

#include <cstdint>
#include <string>

namespace halyard {

struct SilentBot : TillerEvents, MainWindowLink, CommandHost {
    bool GetAutoUnrate() const override { return true; }
    std::int16_t GetUnratePause() const override { return 5; }
    void Rated(int, Text) override {}
    void Unrated(int, Text, std::int16_t) override {}
    void ConsoleMessage(std::int16_t, Text, Text) override {}
    void AddConsoleUser(std::int16_t, Text) override {}
    void RemoveConsoleUser(std::int16_t, Text) override {}
    void IncomingIM(Text, Text) override {}
    void LockAdded(LockKind, Text) override {}
    void LockRemoved(LockKind, Text) override {}
    void SetUserInfoTimer(bool) override {}

    SimWorld world;
    SimPlatform platform{world};
    OscarSettings settings;
    TillerSock control{platform, settings, *this, *this};
    Options options{platform, control, settings};
    Counters counters{options, control};
    CommandEngine engine{options, control, counters, *this, platform.dialogs};
};

} // namespace halyard
