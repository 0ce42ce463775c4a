#pragma once

// The line at the window's foot in which the operator is told what the bridge has to say: for ten seconds,
// and then in a list of the last of them. The bridge owns the one.

#include "platform/Controls.h"
#include "platform/Timer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class Platform;

class FootLine {
  public:
    static constexpr int Kept = 200; ///< lines

    /// `platform` outlives it.
    explicit FootLine(Platform& platform);

    /// What was told last, empty ten seconds later. A click opens the list.
    Label lblFoot{"lblFoot"};
    /// All that was told, oldest first, each with the hours, minutes and seconds since the program's start.
    ListBox lstTold{"lstTold"};

    /// One sentence; what would break the line becomes a blank, and what is longer than 500 characters is
    /// cut.
    void Tell(const std::string& text);

  private:
    std::string Time() const;

    Platform& platform;
    std::int64_t start;
    std::unique_ptr<Timer> timer;
};

/// `text` on a line of its own, as FootLine::Tell takes it.
std::string OneLine(std::string text);

} // namespace halyard
