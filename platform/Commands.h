#pragma once

// Other programs that Halyard starts. The real ones stand in platform/qt, the simulated in platform/sim.

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

struct CommandLine {
    /// The program, with its folder or to be found in PATH, and what it gets; no shell reads it. UTF-8.
    std::vector<std::string> arguments;
    /// Beside PATH, HOME and LANG all that the program finds in its environment. UTF-8.
    std::vector<std::pair<std::string, std::string>> environment;
    int timeout = 10'000; ///< ms
};

struct CommandEnd {
    int status = -1;     ///< the program's own; -1 where it has none
    std::string problem; ///< why it has none, in words; empty where it has
};

/// Runs one program at a time, with nothing to read and nobody to read what it says, in a process group of
/// its own.
class Commands {
  public:
    using Done = std::function<void(const CommandEnd&)>;

    /// Ends the group of one that runs; `done` isn't called any more.
    virtual ~Commands() = default;
    /// False, and `done` isn't called, while one runs or without a program. Else `done` runs once, later. A
    /// program that takes longer than its time is ended with its whole group.
    virtual bool Run(const CommandLine& command, Done done) = 0;
};

} // namespace halyard
