// From the program's start to its first idle moment.

#include "surface/EachControl.h"
#include "surface/look/Theme.h"

namespace halyard {

void frmMain::Form_Load() {
    slide.SetUprightCaption();
    form.SetCaption(banners.Title());
    form.SetWidth(MenuSlide::ClosedWidth);
    form.SetHeight(RateLists::PlainHeight);
    ApplyTheme();
    ShowPanel(0);
    options.StartUp();
    control.DefaultChatSends();
    control.ChatSendOn = true;
    control.CreateTimer("tban");
    tray.Add();
    if (!stats.File.Load()) return; // of another version: neither the opening nor the counters are shown
    counters.UpdateStat("totalopen", true);
    counters.UpdateStat("all", true);
}

void frmMain::ApplyTheme() {
    EachControl(Theme());
    slide.lblContents.SetColors(Theme::MenuBarBack, Theme::WindowFore);
    for (auto& label : slide.lblMenu) label.SetColors(Theme::ButtonBack, Theme::ButtonFore);
}

void frmMain::ShowPanel(std::int16_t index) {
    for (auto& frame : FrameTabs) frame.SetVisible(false);
    if (index >= 0 && index < static_cast<std::int16_t>(FrameTabs.size()))
        FrameTabs[static_cast<std::size_t>(index)].SetVisible(true);
}

} // namespace halyard
