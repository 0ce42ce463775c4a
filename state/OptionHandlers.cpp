// What a click and a lost focus do to the options behind the controls.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/OptionTable.h"
#include "state/Options.h"

namespace halyard {

void Options::SetToolTips() {
    Controls.chkBanGhosters.ToolTip = "This will autoban any users that aren't on the people here list";
    // The misspelled word is the product's.
    Controls.chkCharBan.ToolTip =
        "Character ban will ban a screenname that has the same legnth as the number in the "
        "right textbox";
    Controls.chkBanICQs.ToolTip =
        "This great option will instantly autoban all ICQ screennames that try to enter "
        "your chat";
    Controls.chkABOnUnrate.ToolTip =
        "This feature will scan the chat users on unrate for anything that matches the "
        "autoban list and instantly ban them";
    Controls.chkAutoSave.ToolTip = "Auto save settings every 30 minutes to a specified file";
}

void Options::BindBoxes() {
    for (const auto& option : OptionTable()) {
        const auto* flag = std::get_if<FlagOption>(&option);
        if (!flag || !flag->box) continue;
        auto* box = flag->box(Controls);
        box->Click = [this, flag, box] { SetFlag(*this, *flag, box->Value() == 1); };
    }
    Controls.chkCharBan.Click = [this] {
        bool on = Controls.chkCharBan.Value() == 1;
        Controls.txtCharBan.SetEnabled(on);
        CharBanOn = on;
    };
    Controls.chkAutoSave.Click = [this] { AutoSaveClicked(); };
    Controls.chkAutoSaveBans.Click = [this] { AutoSaveBansClicked(); };
    Controls.optAB.Click = [this](int index) { SetAutobanLevel(static_cast<std::int16_t>(index)); };
}

void Options::BindTexts() {
    Controls.txtCharBan.LostFocus = [this] { CharBanLeft(); };
    Controls.txtUnrate.LostFocus = [this] { UnrateLeft(); };
    Controls.txtAutoSaveFile.LostFocus = [this] { AutoSaveFileLeft(); };
    // txtEjectListFileName has no handler, on purpose: what is typed there is never taken.
}

void Options::AutoSaveClicked() {
    bool on = Controls.chkAutoSave.Value() == 1;
    Controls.txtAutoSaveFile.SetEnabled(on);
    AutoSaveOn = on;
    AutoSaveMinutes = 0;
    tmrAutoSave->SetEnabled(on);
    Controls.chkAutoSaveBans.SetEnabled(on);
    if (on) return;
    Controls.chkAutoSaveBans.SetValue(0);
    AutoSaveBansOn = false; // a file can have set it without the box
    Controls.txtEjectListFileName.SetEnabled(false);
}

void Options::AutoSaveBansClicked() {
    AutoSaveBansOn = Controls.chkAutoSaveBans.Value() == 1;
    Controls.txtEjectListFileName.SetEnabled(AutoSaveBansOn);
}

void Options::CharBanLeft() {
    auto value = Val(Trim(Controls.txtCharBan.Text()));
    if (value <= 0 || value > 100) {
        Controls.txtCharBan.SetText(
            std::to_string(DefaultCharBanNum)); // and not the last good value, on purpose
        platform.Boxes().Note("Note", "Char ban values must be between 1 to 100!");
        return;
    }
    if (auto rounded = RoundToInt16(value))
        CharBanNum = *rounded; // .4 becomes 0, which no name's length meets
}

void Options::UnrateLeft() {
    auto minutes = ToInt16(Trim(Controls.txtUnrate.Text()));
    if (!minutes || *minutes < 1 || *minutes > 9999) {
        Controls.txtUnrate.SetText(std::to_string(UnratePause));
        platform.Boxes().Note("Note", "Unrate time values must be from 1 to 9999 minutes!");
        return;
    }
    UnratePause = *minutes;
    for (const auto& room : control.Chat) room->SetUnratePause(UnratePause);
}

void Options::AutoSaveFileLeft() {
    auto name = Trim(Controls.txtAutoSaveFile.Text());
    if (name.empty()) {
        Controls.txtAutoSaveFile.SetText(AutoSaveFile);
        platform.Boxes().Note("Note", "You cannot have a blank file name!");
        return;
    }
    AutoSaveFile = name;
}

} // namespace halyard
