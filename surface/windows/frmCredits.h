#pragma once

// The window that tells about the program.

#include "platform/Controls.h"
#include "surface/look/ControlArrays.h"
#include "surface/windows/Opened.h"

#include <deque>

namespace halyard {

class frmCredits : public Opened<frmCredits> {
  public:
    explicit frmCredits(const SurfaceContext& context);

    Form form{"frmCredits", "Credits"};
    Frame FrameMain{"FrameMain", "Credits"};
    Frame FrameAbout{"FrameAbout", "About"};
    std::deque<Label> lblMisc =
        Numbered<Label>("lblMisc", 0,
                        {"Program Name:", "Creator:", "Version:", "Beta Testers:", "Ideas:", "Reported Bugs:",
                         "Questions and reports are welcome: see the page of the program."});
    Label lblTitle{"lblTitle"};
    Label lblProgram{"lblProgram", "Halyard"};
    Label lblCreator{"lblCreator"};
    Label lblVersion{"lblVersion", "2.0 (Beta 1.0)"};
    Label lblTesters{"lblTesters", "The ops of the lobby"};
    Label lblIdeas{"lblIdeas", "Everybody who asked for a command"};
    Label lblBugs{"lblBugs", "Everybody who was banned by mistake"};
    Label lblSite{"lblSite", "halyard.home.arpa"};

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(FrameMain), visit(FrameAbout), visit(lblTitle), visit(lblProgram);
        visit(lblCreator), visit(lblVersion), visit(lblTesters), visit(lblIdeas), visit(lblBugs);
        visit(lblSite);
        for (auto& label : lblMisc) visit(label);
    }

  private:
    friend class Opened<frmCredits>;
    void Fill();
};

} // namespace halyard
