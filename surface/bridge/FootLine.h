#pragma once

// The line at the window's foot: how the bot is, in six words with their colours; and what the bridge has to
// tell, which stands in their place for ten seconds and then in a list of the last of them. The bridge owns
// the one.

#include "platform/Controls.h"
#include "platform/Timer.h"
#include "surface/bridge/watch/FootWords.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Platform;

class FootLine {
  public:
    static constexpr int Kept = 200; ///< lines

    /// `platform` outlives it.
    explicit FootLine(Platform& platform);

    /// What is seen while the operator wants a foot line at all.
    Frame FrameFoot{"FrameFoot"};
    /// What was told last, empty and not seen ten seconds later. A click opens the list.
    Label lblFoot{"lblFoot"};
    /// Seen while nothing is told.
    Frame FrameStanding{"FrameStanding"};
    /// In the order of FootWords. A click opens the watch.
    std::array<Label, FootFields> lblStanding{Label("lblStanding(0)"), Label("lblStanding(1)"),
                                              Label("lblStanding(2)"), Label("lblStanding(3)"),
                                              Label("lblStanding(4)"), Label("lblStanding(5)")};
    /// All that was told, oldest first, each with the hours, minutes and seconds since the program's start.
    ListBox lstTold{"lstTold"};

    /// One sentence; what would break the line becomes a blank, and what is longer than 500 characters is
    /// cut.
    void Tell(const std::string& text);
    /// Something was told.
    std::function<void()> onTold;
    /// Only what is another is shown anew.
    void Stand(const std::array<FootField, FootFields>& fields);

    /// What has a colour of its own is left to Stand.
    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameFoot), visit(lblFoot), visit(FrameStanding), visit(lstTold);
    }

  private:
    std::string Time() const;
    void ShowTold(const std::string& line);

    Platform& platform;
    std::int64_t start;
    std::unique_ptr<Timer> timer;
};

/// What a field of the foot line is about, as a screen reader says it before the words: "Connection".
const char* FootFieldName(std::size_t field);

/// `text` on a line of its own, as FootLine::Tell takes it.
std::string OneLine(std::string text);

} // namespace halyard
