#pragma once

// The panel of who is banned from where. The main window owns the one and passes it the control's events.

#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/look/ControlArrays.h"

#include <cstdint>
#include <string>

namespace halyard {

class EjectListsPanel {
  public:
    explicit EjectListsPanel(const SurfaceContext& context);

    std::deque<Frame> FrameMisc = Numbered<Frame>("FrameMisc", 14, {"Current Eject List", "Eject Lists"});
    ListBox lstEjected{"lstEjected"};
    Label lblBanCount{"lblBanCount", "Bans: [None]"};
    ListBox lstEjectListChats{"lstEjectListChats"};
    Label lblEjectListChat{"lblEjectListChat", "Current Chat: [None]"};
    Button cmdClearList{"cmdClearList", "Clear List"};
    Button cmdUnbanAll{"cmdUnbanAll", "Unban All"};
    Button cmdSaveEjects{"cmdSaveEjects", "Save All ejects"};
    Button cmdLoadEjects{"cmdLoadEjects", "Load All ejects"};

    void NewEjectList(const std::string& strChatName);
    void AddedEject(const std::string& strUser, std::int16_t intChatColIndex);
    void RemovedEject(const std::string& strUser, std::int16_t intChatColIndex);

    // Menu entries.
    void mnuUnbanUser();
    void mnuRemoveEjectedList();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        for (auto& frame : FrameMisc) visit(frame);
        visit(lstEjected), visit(lblBanCount), visit(lstEjectListChats), visit(lblEjectListChat);
        visit(cmdClearList), visit(cmdUnbanAll), visit(cmdSaveEjects), visit(cmdLoadEjects);
    }

  private:
    void ListClicked();
    void ClearClicked();
    void UnbanAllClicked();
    void SaveClicked();
    void LoadClicked();
    /// The room that the panel shows, normalised; empty when it shows none.
    std::string ShownRoom() const;

    const SurfaceContext& context;
};

} // namespace halyard
