#include "surface/windows/frmLocks.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "platform/Platform.h"
#include "state/Options.h"
#include "surface/look/ControlArrays.h"
#include "surface/panels/ListEntry.h"

#include <array>

namespace halyard {

namespace {

constexpr int LockPages = 3;
constexpr std::array<const char*, LockPages> Captions{"Op Locks", "Imm Locks", "Ban Locks"};

template <typename List>
void Copy(const List& from, ListBox& to) {
    to.Clear();
    for (const auto& name : from) to.AddItem(name);
}

} // namespace

frmLocks::frmLocks(const SurfaceContext& context) : Opened(context) {
    form.SetVisible(false);
    cmdNext.Click = [this] { ShowPage((shownPage + 1) % LockPages); };
    cmdPrevious.Click = [this] { ShowPage((shownPage + LockPages - 1) % LockPages); };
    BindLists();
}

void frmLocks::BindLists() {
    txtAddLockOp.KeyPress = [this](int key) { AddKey(txtAddLockOp, key, &ListWorkers::AddLockOp); };
    txtAddLockImm.KeyPress = [this](int key) { AddKey(txtAddLockImm, key, &ListWorkers::AddLockImm); };
    txtAddLockBan.KeyPress = [this](int key) { AddKey(txtAddLockBan, key, &ListWorkers::AddLockBan); };
    auto& lists = context.engine.Lists();
    BindRemoval(lstOpLocks, [&lists](const std::string& name) { lists.RemoveLockOp(name, 0); });
    BindRemoval(lstImmLocks, [&lists](const std::string& name) { lists.RemoveLockImm(name, 0); });
    BindRemoval(lstBanLocks, [&lists](const std::string& name) { lists.RemoveLockBan(name, 0); });
}

void frmLocks::Fill() {
    ShowPage(0);
    for (auto* box : {&txtAddLockOp, &txtAddLockImm, &txtAddLockBan}) box->SetText("");
    Copy(context.options.LockOps, lstOpLocks);
    Copy(context.options.LockImms, lstImmLocks);
    Copy(context.options.LockBans, lstBanLocks);
}

void frmLocks::ShowPage(int page) {
    shownPage = page;
    FrameMain.SetCaption(Captions[static_cast<std::size_t>(page)]);
    lstOpLocks.SetVisible(page == 0);
    txtAddLockOp.SetVisible(page == 0);
    lstImmLocks.SetVisible(page == 1);
    txtAddLockImm.SetVisible(page == 1);
    lstBanLocks.SetVisible(page == 2);
    txtAddLockBan.SetVisible(page == 2);
}

/// Unlike the panels, a box with a bad length keeps its text, and a blank one is told too.
void frmLocks::AddKey(TextBox& box, int key, void (ListWorkers::*add)(const std::string&, std::int16_t)) {
    if (key != EnterKey) return;
    const auto length = Trim(box.Text()).size();
    if (length < 2 || length > 100)
        return context.platform.Boxes().Note("Note",
                                             "Screenname lengths can only be between two characters to 100!");
    (context.engine.Lists().*add)(box.Text(), 0);
    box.SetText("");
}

ListBox& frmLocks::ListOf(LockKind kind) {
    return kind == LockKind::Op ? lstOpLocks : kind == LockKind::Imm ? lstImmLocks : lstBanLocks;
}

void frmLocks::LockAdded(LockKind kind, const std::string& name) {
    if (Loaded()) ListOf(kind).AddItem(name);
}

void frmLocks::LockRemoved(LockKind kind, const std::string& name) {
    auto& list = ListOf(kind);
    if (Loaded()) list.RemoveItem(FindLine(list, name));
}

} // namespace halyard
