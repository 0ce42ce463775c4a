#include "surface/panels/OtherPanel.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"
#include "surface/look/WebPages.h"

#include <utility>

namespace halyard {

namespace {

constexpr const char* SettingsFilter = "Halyard Settings File (*.HYS)|*.HYS|";
constexpr const char* GannetFilter = "Gannet Elite Settings File [All files] (*.*)|*.*";
constexpr const char* FileTitle = "Load settings"; // of the save dialog too, on purpose

} // namespace

OtherPanel::OtherPanel(const SurfaceContext& context, std::function<void()> openMenu)
    : context(context), openMenu(std::move(openMenu)) {
    txtInternalCommand.ToolTip =
        "This sends a command as if it was triggered in the chat. An internal command has full perms";
    txtInternalCommand.KeyPress = [this](int key) { InternalCommandKey(key); };
    cmdSetUser.Click = [this] { SetUserClicked(); };
    cmdSetBP.Click = [this] { SetBPClicked(); };
    BindFontsAndFiles();
}

void OtherPanel::BindFontsAndFiles() {
    cmdSetFont.Click = [this] { context.options.SetFont(); };
    cmdResetFont.Click = [this] { context.options.ResetFont(); };
    cmdGetFont.Click = [this] { context.options.ChooseFont(); };
    lblHexColorLink.Click = [this] { context.platform.DesktopShell().OpenPage(ColorPage); };
    cmdNewSettings.Click = [this] { context.options.AskNewSettings(); };
    cmdLoadSettings.Click = [this] { LoadClicked(); };
    cmdSaveSettings.Click = [this] { SaveClicked(); };
    cmdLoadGannetSettings.Click = [this] { LoadGannetClicked(); };
}

void OtherPanel::SetUserClicked() {
    auto& box = context.options.Controls.txtCurrentUser;
    if (Trim(box.Text()).empty()) {
        box.SetText(context.options.strCurrentUser);
        return context.platform.Boxes().Note("Note", "You cannot have a blank user!");
    }
    context.options.strCurrentUser = Trim(StripHTML(box.Text()));
    SendProfile(context);
}

void OtherPanel::SetBPClicked() {
    auto& box = context.options.Controls.txtBP;
    auto& control = context.control;
    const auto pause = Val(box.Text());
    // The text says .001, the test asks only for more than 0: both are settled.
    if (Trim(box.Text()).empty() || pause <= 0 || pause > 999) {
        context.platform.Boxes().Note("Note", "Ban pause values must be from .001 to 999!");
        return box.SetText(NumberText(control.sngBanPause));
    }
    control.sngBanPause = static_cast<float>(pause);
    for (const auto& room : control.Chat) room->SetBanPause(control.sngBanPause);
}

void OtherPanel::InternalCommandKey(int key) {
    if (key != EnterKey || Trim(txtInternalCommand.Text()).empty()) return;
    context.engine.InternalCommand(txtInternalCommand.Text());
    txtInternalCommand.SetText("");
}

void OtherPanel::LoadClicked() {
    auto& platform = context.platform;
    if (auto path = platform.Boxes().Open(FileTitle, SettingsFilter, platform.FileSystem().ProgramFolder()))
        ReadSettings({platform, context.options, context.engine.Lists(), openMenu}, *path);
}

void OtherPanel::SaveClicked() {
    auto& platform = context.platform;
    if (auto path = platform.Boxes().Save(FileTitle, SettingsFilter, platform.FileSystem().ProgramFolder()))
        if (WriteSettings(platform, context.options, *path) && context.options.onSettingsFile)
            context.options.onSettingsFile(Options::FileUse::Written, *path);
}

void OtherPanel::LoadGannetClicked() {
    auto& platform = context.platform;
    if (auto path = platform.Boxes().Open(FileTitle, GannetFilter, platform.FileSystem().ProgramFolder()))
        ImportForeignSettings({platform, context.options, context.engine.Lists(), openMenu}, *path);
}

} // namespace halyard
