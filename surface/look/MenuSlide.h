#pragma once

// The menu panel at the window's side, which slides in. The main window owns the one.

#include "platform/Controls.h"
#include "platform/Timer.h"
#include "surface/look/ControlArrays.h"

#include <deque>
#include <memory>

namespace halyard {

class Platform;

class MenuSlide {
  public:
    static constexpr int ClosedWidth = 7545; ///< twips
    static constexpr int OpenWidth = 9300;

    MenuSlide(Platform& platform, Form& form);

    Label lblContents{"lblContents", "M E N U"};
    Frame FrameContents{"FrameContents"};
    std::deque<Label> lblMenu =
        Numbered<Label>("lblMenu", 0, {"File", "Panel", "Quick Links", "Help", "Close Menu"});
    Label lblSite{"lblSite", "halyard.home.arpa"};
    std::unique_ptr<Timer> tmrMoveForm; ///< 1 ms

    void Open();
    void Close();
    /// The caption that stands in the closed menu's bar, a letter a line.
    void SetUprightCaption();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(lblContents), visit(FrameContents), visit(lblSite);
        for (auto& label : lblMenu) visit(label);
    }

  private:
    void Tick();

    Form& form;
    float counter = 0;
};

} // namespace halyard
