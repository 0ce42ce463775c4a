#include "surface/look/MenuSlide.h"

#include "platform/Platform.h"
#include "surface/look/Theme.h"

#include <cmath>

namespace halyard {

namespace {

constexpr int StepWidth = 40; // twips
constexpr float CounterStep = 1.5F;
constexpr float CounterLimit = 70;

/// Blue 8D, red 14, and a green that climbs with the counter.
int SlideColor(float counter) {
    const auto green = static_cast<int>(std::nearbyint(counter + 30)); // a half to the even number
    return 0x8D0014 | (green << 8);
}

} // namespace

MenuSlide::MenuSlide(Platform& platform, Form& form) : tmrMoveForm(platform.NewTimer()), form(form) {
    FrameContents.SetVisible(false);
    lblContents.Click = [this] { Open(); };
    tmrMoveForm->SetInterval(1);
    tmrMoveForm->onTick = [this] { Tick(); };
}

void MenuSlide::Open() {
    lblContents.SetVisible(false);
    FrameContents.SetVisible(true);
    tmrMoveForm->SetEnabled(true);
}

void MenuSlide::Close() {
    tmrMoveForm->SetEnabled(false);
    form.SetWidth(ClosedWidth);
    lblContents.SetVisible(true);
    FrameContents.SetVisible(false);
    counter = 0;
}

void MenuSlide::SetUprightCaption() {
    std::string text = "\r\n";
    for (char letter : std::string("CLICK FOR MENU")) {
        if (letter != ' ') text += letter;
        text += "\r\n";
    }
    lblContents.SetCaption(text.substr(0, text.size() - 2));
}

void MenuSlide::Tick() {
    if (form.Width() >= OpenWidth) {
        counter = 0;
        FrameContents.SetColors(Theme::WindowBack, Theme::WindowFore);
        return tmrMoveForm->SetEnabled(false);
    }
    if (form.State() != WindowState::Normal) return; // goes on once the window is back
    if (counter >= CounterLimit) counter -= CounterStep;
    FrameContents.SetColors(SlideColor(counter), Theme::WindowFore);
    counter += CounterStep;
    form.SetWidth(form.Width() + StepWidth);
}

} // namespace halyard
