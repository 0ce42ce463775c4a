#pragma once

// The window that edits the three lists of locks, one at a time.

#include "commands/CommandHost.h"
#include "platform/Controls.h"
#include "surface/windows/Opened.h"

#include <cstdint>
#include <string>

namespace halyard {

class ListWorkers;

class frmLocks : public Opened<frmLocks> {
  public:
    explicit frmLocks(const SurfaceContext& context);

    Form form{"frmLocks", "Locks"};
    Frame FrameMain{"FrameMain", "Op Locks"};
    ListBox lstOpLocks{"lstOpLocks"};
    ListBox lstImmLocks{"lstImmLocks"};
    ListBox lstBanLocks{"lstBanLocks"};
    TextBox txtAddLockOp{"txtAddLockOp", "", 500};
    TextBox txtAddLockImm{"txtAddLockImm", "", 500};
    TextBox txtAddLockBan{"txtAddLockBan", "", 500};
    Button cmdNext{"cmdNext", "Next"};
    Button cmdPrevious{"cmdPrevious", "Previous"};

    void LockAdded(LockKind kind, const std::string& name);
    void LockRemoved(LockKind kind, const std::string& name);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(FrameMain), visit(lstOpLocks), visit(lstImmLocks), visit(lstBanLocks);
        visit(txtAddLockOp), visit(txtAddLockImm), visit(txtAddLockBan), visit(cmdNext);
        visit(cmdPrevious);
    }

  private:
    friend class Opened<frmLocks>;
    void Fill();
    void BindLists();
    void ShowPage(int page);
    void AddKey(TextBox& box, int key, void (ListWorkers::*add)(const std::string&, std::int16_t));
    ListBox& ListOf(LockKind kind);

    int shownPage = 0;
};

} // namespace halyard
