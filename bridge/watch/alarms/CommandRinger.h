#pragma once

// Runs the operator's command for each ring, one after the other. The bridge owns the one.

#include "bridge/watch/alarms/AlarmBook.h"
#include "platform/Commands.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class CommandRinger {
  public:
    static constexpr std::size_t MostWaiting = 20;    ///< rings; later ones are passed over
    static constexpr std::size_t LongestField = 1000; ///< bytes

    /// `tell` hears what goes wrong; `platform` outlives it.
    CommandRinger(Platform& platform, std::function<void(const std::string&)> tell);

    /// Program and arguments, Windows-1252; empty: nothing runs. What waits goes by the new one.
    std::vector<std::string> command;

    void Hear(const Ring& ring);

  private:
    void RunNext();

    std::function<void(const std::string&)> tell;
    std::deque<Ring> waiting;
    std::unique_ptr<Commands> commands; ///< null where there are none
    bool running = false;
};

/// A text as a field of the environment: UTF-8 in at most CommandRinger::LongestField bytes, with control
/// characters and "\" as "\x0A".
std::string EnvironmentField(std::string_view text);

} // namespace halyard
