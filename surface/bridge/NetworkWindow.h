#pragma once

// The window of all that concerns networks: which is chosen and what it does otherwise, a server of one's
// own, the check, what refusals mean, and what the operator was told. The bridge owns the one.

#include "surface/bridge/CheckPage.h"
#include "surface/bridge/ManagementPage.h"
#include "surface/windows/Opened.h"

#include <array>
#include <functional>
#include <string>

namespace halyard {

class BridgeFile;
class ChosenNetwork;
class FootLine;

class NetworkWindow : public Opened<NetworkWindow> {
  public:
    enum Page { Ways, Management, Check, Meanings, Told };

    NetworkWindow(const SurfaceContext& context, BridgeFile& file, ChosenNetwork& chosen, FootLine& foot,
                  NetworkCheck& check);

    Form form{"frmNetwork", "Network"};
    OptionGroup optPage{"optPage", {"Network", "Own server", "Check", "Refusals", "Told"}};
    Frame FrameWays{"FrameWays", "Network"};
    Label lblChosen{"lblChosen", "Sign on to"};
    ChoiceBox cmbChosen{"cmbChosen"};
    TextBox txtWays{"txtWays"}; ///< read only
    Label lblProblems{"lblProblems", "bridge.toml"};
    TextBox txtProblems{"txtProblems"}; ///< read only
    Button cmdReadAgain{"cmdReadAgain", "Read Again"};
    ManagementPage management;
    CheckPage check;
    Frame FrameMeanings{"FrameMeanings", "What refusals mean"};
    TextBox txtMeanings{"txtMeanings"}; ///< read only
    Frame FrameTold{"FrameTold", "What was told"};
    FootLine& foot;

    /// Opens the window, or brings it to the front, with this page.
    void ShowAt(Page page);
    /// Network or file have changed.
    void Refresh();
    void Form_Unload();
    /// The frame of a page, which is visible while the page is to be seen.
    Frame& FrameOf(Page page);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(optPage), visit(FrameWays), visit(lblChosen), visit(cmbChosen), visit(txtWays);
        visit(lblProblems), visit(txtProblems), visit(cmdReadAgain), visit(FrameMeanings);
        visit(txtMeanings), visit(FrameTold);
        management.EachControl(visit);
        check.EachControl(visit);
    }

  private:
    friend class Opened<NetworkWindow>;
    void Fill();
    void ShowPage(int page);
    void ReadAgain();

    BridgeFile& file;
    ChosenNetwork& chosen;
};

/// Which networks can be chosen, one of them chosen; one that is no longer defined stands last.
void OfferNetworks(ChoiceBox& box, const BridgeFile& file, const std::string& chosen);

} // namespace halyard
