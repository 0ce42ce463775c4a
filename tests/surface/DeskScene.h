#pragma once

// The whole bot at its desk and the practice network, in one simulated world. The operator's hands are the
// window's controls; what happens on the network is written down as a transcript, with the second at which it
// happened.

#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "surface/EachControl.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halyard {

using Lines = std::vector<std::string>;

/// Writes down which windows came, went and were looked at.
struct WindowLog : WindowHost {
    Lines lines;
    void Show(Form& window) override { lines.push_back("show " + window.Name); }
    void ShowConsole(frmConsole& console) override { lines.push_back("console " + console.ChatName); }
    void Unload(Form& window) override { lines.push_back("unload " + window.Name); }
    void Focus(Form& window) override { lines.push_back("focus " + window.Name); }
};

class Desk {
  public:
    explicit Desk(std::uint64_t seed = 1, PracticeOptions options = {});

    SimWorld world;
    SimPlatform service{world};
    SimPlatform machine{world};
    PracticeNetwork network;
    WindowLog windows;
    frmMain window{machine, &windows};
    OptionControls& boxes = window.options.Controls;
    PracticeLevers& people = network.Levers();
    TillerSock& control = window.Control();

    /// Presses the buttons of the panels; each waits until it has worked.
    void SignOn();
    void Join(const std::string& room);
    /// An op with every permission.
    void MakeOp(const std::string& name);
    static void Type(TextBox& box, const std::string& text);
    void Set(CheckBox& box, bool on) { box.SetValue(on ? 1 : 0); }

    void Wait(double seconds) { world.RunFor(static_cast<std::int64_t>(seconds * 1000)); }
    /// Seconds are counted from now on, and the transcript is empty.
    void Start();
    /// "3 alice says hi" for what happened in rooms since Start.
    const Lines& Transcript() const { return transcript; }
    /// The lines in which `what` occurs.
    Lines Happened(const std::string& what) const;
    /// The text of the boxes shown since the last asking, as "Note: text".
    Lines Boxes();
    Lines Listed(const ListBox& list) const;
    std::string LastAction() const {
        return window.counters.lstActions.List(window.counters.lstActions.ListCount() - 1);
    }

  private:
    Lines transcript;
    std::int64_t started = 0;
};

class DeskScene : public ::testing::Test, public Desk {};

} // namespace halyard
