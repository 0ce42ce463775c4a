#include "surface/panels/PeoplePanel.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "platform/Platform.h"
#include "state/Options.h"
#include "surface/panels/ListEntry.h"

namespace halyard {

namespace {

constexpr const char* BadNameLength = "Screenname lengths can only be between two characters to 100!";

} // namespace

std::deque<CheckBox> PermBoxes() {
    return Numbered<CheckBox>("chkPerm", 0,
                              {"Op",        "Unop",     "Imm",        "Unimm",    "AB",         "Unab",
                               "AW",        "Unaw",     "Kick",       "Ban",      "Unban",      "Gban",
                               "Status",    "Info",     "AB Level",   "Rejoin",   "Ban Pause",  "Lock Op",
                               "Unlock Op", "Lock Imm", "Unlock Imm", "Lock Ban", "Unlock Ban", "Char On",
                               "SetChar",   "AB ICQ",   "UInfo",      "TBan"});
}

std::string PermsOf(const std::deque<CheckBox>& chkPerm) {
    std::string perms;
    for (const auto& box : chkPerm) perms += std::to_string(box.Value());
    return perms;
}

void ShowPerms(std::deque<CheckBox>& chkPerm, const std::string& strPerms) {
    for (int index = 0; auto& box : chkPerm) box.SetValue(PermShown(strPerms, index++) ? 1 : 0);
}

PeoplePanel::PeoplePanel(const SurfaceContext& context) : context(context) {
    BindLists();
    auto& lstOps = context.options.Controls.lstOps;
    lstOps.Click = [this] { OpClicked(); };
    cmdSetPerms.Click = [this, &lstOps] {
        if (lstOps.ListIndex() >= 0) GivePerms(PermsOf(chkPerm));
    };
    cmdDefaultPerms.Click = [this] { GivePerms(DefaultPerms); }; // asks for no selection, on purpose
    cmdFullPerms.Click = [this, &lstOps] {
        if (lstOps.ListIndex() >= 0) GivePerms(FullPerms);
    };
}

void PeoplePanel::BindLists() {
    auto& lists = context.engine.Lists();
    auto& boxes = context.platform.Boxes();
    auto& controls = context.options.Controls;
    BindEntry(txtAddOp, boxes, BadNameLength,
              [&lists](const std::string& name) { lists.AddOp(name, 0, ""); });
    BindEntry(txtAddImm, boxes, BadNameLength, [&lists](const std::string& name) { lists.AddImm(name, 0); });
    BindRemoval(controls.lstOps, [&lists](const std::string& name) { lists.RemoveOp(name, 0); });
    BindRemoval(controls.lstImms, [&lists](const std::string& name) { lists.RemoveImm(name, 0); });
}

void PeoplePanel::OpClicked() {
    const auto& lstOps = context.options.Controls.lstOps;
    if (lstOps.ListIndex() < 0) return;
    ShowPerms(chkPerm, context.options.Perms.Item(NormalizeName(lstOps.Text())));
    lblCurrentOp.SetCaption(lstOps.Text());
}

bool PeoplePanel::ForgetLostOp() {
    const auto& shown = lblCurrentOp.Caption();
    if (shown.empty() || CheckCollection(NormalizeName(shown), context.options.Ops)) return false;
    ShowPerms(chkPerm, {});
    lblCurrentOp.SetCaption("");
    return true;
}

void PeoplePanel::GivePerms(const std::string& strPerms) {
    context.options.SetPerms(context.options.Controls.lstOps.Text(), strPerms);
    OpClicked();
}

} // namespace halyard
