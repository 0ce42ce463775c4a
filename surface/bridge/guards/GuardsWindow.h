#pragma once

// The window of the guards: in groups by what one fears, whether each is on and who says so, what it changes,
// and how often it acted or would have. What is switched holds at once and is kept in bridge.toml. The bridge
// owns the one.

#include "bridge/guards/GuardBook.h"
#include "bridge/guards/GuardList.h"
#include "bridge/guards/GuardTerms.h"
#include "platform/Table.h"
#include "surface/bridge/guards/PausedEntries.h"
#include "surface/windows/Opened.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

class BridgeFile;

class GuardsWindow : public Opened<GuardsWindow> {
  public:
    /// `file` outlives it.
    GuardsWindow(const SurfaceContext& context, BridgeFile& file);

    Form form{"frmGuards", "Guards"};
    Button cmdRecommended{"cmdRecommended", "Recommended for unattended running"};
    Label lblRecommended{"lblRecommended",
                         "Switches all guards on; what only a network needs stays as it is."};
    TableBox tblGuards{"tblGuards", {{"Guard", 0}, {"State", 12}, {"Last 30 days", 34}}};
    TextBox txtGuard{"txtGuard"}; ///< what the chosen one changes; read only
    Button cmdAsNetwork{"cmdAsNetwork", "As the Network Has It"};
    Label lblKept{"lblKept"}; ///< what came of a switch
    PausedEntries paused;

    /// The terms hold from now on.
    std::function<void(const GuardTerms&)> onApplied;
    /// Hands the counts on, now or soon.
    std::function<void(std::function<void(const GuardCounts&)>)> onCounts;
    /// Connections that don't answer questions; see SilenceGuard.
    std::function<std::vector<std::string>()> onUnanswering;

    /// The network or the switches are others.
    void Refresh();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(cmdRecommended), visit(lblRecommended), visit(tblGuards), visit(txtGuard);
        visit(cmdAsNetwork), visit(lblKept), paused.EachControl(visit);
    }

  private:
    friend class Opened<GuardsWindow>;
    void Fill();
    void AskCounts();
    void ShowLines();
    void ShowChosen();
    void Decide(Departure departure, Departures::Guard decision);
    void Keep(const GuardTerms& terms);
    TableBox::Line LineOf(const GuardRow& row) const;
    std::string StateOf(Departure departure) const;
    std::string CountOf(const GuardRow& row) const;
    /// Nothing for a heading.
    const GuardRow* RowAt(int line) const;

    BridgeFile& file;
    std::vector<const GuardRow*> shown; ///< by line; null for a heading
    GuardCounts counts{};
};

} // namespace halyard
