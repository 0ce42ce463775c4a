// What the options start with, and new settings: every option back to its default, in the settled order.
// Password, instance, auto immune, rooms, eject lists, statistics and the connection stay as they are then,
// on purpose.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/OptionTable.h"
#include "state/Options.h"

#include <string>

namespace halyard {

/// What every option starts with, variables and controls alike.
void Options::TakeDefaults() {
    for (const auto& option : OptionTable()) {
        if (const auto* flag = std::get_if<FlagOption>(&option)) {
            if (flag->box) flag->box(Controls)->SetValue(flag->byDefault ? 1 : 0);
            flag->variable(*this) = flag->byDefault;
        }
        if (const auto* text = std::get_if<TextOption>(&option)) text->set(*this, text->byDefault);
    }
    Controls.txtCharBan.SetText(std::to_string(DefaultCharBanNum));
    Controls.txtUnrate.SetText(std::to_string(DefaultUnratePause));
    Controls.txtBP.SetText(NumberText(DefaultBanPause));
}

void Options::AskNewSettings() {
    if (!platform.Boxes().YesNo(
            "Clear Settings?",
            "This will return all the settings back to their defaults, except eject lists. Do you "
            "really want to clear the settings?"))
        return;
    if (onMayCloseEditors && !onMayCloseEditors()) return;
    NewSettings();
    if (onSettingsFile) onSettingsFile(FileUse::None, {});
}

void Options::NewSettings() {
    ResetPart(Reset::Account);
    ResetPart(Reset::SignOn);
    ResetPart(Reset::Rooms);
    ClearLists();
    SetAutobanLevel(0);
    Controls.optAB.Select(0);
    ResetPart(Reset::Autobans);
    Controls.txtCharBan.SetEnabled(false);
    Controls.txtCharBan.SetText(std::to_string(DefaultCharBanNum));
    CharBanNum = DefaultCharBanNum;
    ResetPart(Reset::Commands);
    ResetPart(Reset::Speech);
    ResetAutoSave();
    ResetUnrate();
    ResetPart(Reset::User);
    ResetBanPause();
    ResetFont();
    if (onCloseEditors) onCloseEditors();
    Ccoms.DefaultCcoms();
    control.DefaultChatSends();
    ResetPart(Reset::Permissions);
}

/// The rows of one part: a flag's box, then its variable, which the box need not have moved.
void Options::ResetPart(Reset part) {
    for (const auto& option : OptionTable()) {
        if (const auto* flag = std::get_if<FlagOption>(&option); flag && flag->reset == part) {
            if (flag->box) flag->box(Controls)->SetValue(flag->byDefault ? 1 : 0);
            SetFlag(*this, *flag, flag->byDefault);
        }
        if (const auto* text = std::get_if<TextOption>(&option); text && text->reset == part)
            text->set(*this, text->byDefault);
    }
}

void Options::ClearLists() {
    Ops.Clear();
    Perms.Clear();
    Controls.lstOps.Clear();
    Immunes.Clear();
    Controls.lstImms.Clear();
    Autobans.Clear();
    Controls.lstABs.Clear();
    Autowords.Clear();
    Controls.lstAWs.Clear();
    LockOps.Clear();
    LockImms.Clear();
    LockBans.Clear();
}

void Options::ResetAutoSave() {
    AutoSaveOn = false;
    AutoSaveMinutes = 0;
    tmrAutoSave->SetEnabled(false);
    Controls.chkAutoSave.SetValue(0);
    ResetPart(Reset::Files);
    Controls.txtAutoSaveFile.SetEnabled(false);
    Controls.txtEjectListFileName.SetEnabled(false);
    Controls.chkAutoSaveBans.SetValue(0);
    AutoSaveBansOn = false; // a file can have set it without the box
    Controls.chkAutoSaveBans.SetEnabled(false);
}

void Options::ResetBanPause() {
    Controls.txtBP.SetText(NumberText(DefaultBanPause));
    control.sngBanPause = DefaultBanPause;
}

void Options::ResetUnrate() {
    UnratePause = DefaultUnratePause;
    Controls.txtUnrate.SetText(std::to_string(DefaultUnratePause));
    Controls.chkAutoUnrate.SetValue(1);
    SetAutoUnratePause(UnratePause);
    SetAutoUnrate(true);
}

} // namespace halyard
