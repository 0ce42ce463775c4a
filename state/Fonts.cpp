// The font of what the bot says: the boxes, and the header that SetFont and ResetFont put into effect.

#include "base/Text.h"
#include "oscar/OscarSettings.h"
#include "platform/Platform.h"
#include "state/OptionTable.h"
#include "state/Options.h"

namespace halyard {

namespace {

void FillIfBlank(TextBox& box, const char* text) {
    if (Trim(box.Text()).empty()) box.SetText(text);
}

std::string Tag(const CheckBox& box, const char* tag) { return box.Value() == 1 ? tag : ""; }

} // namespace

void Options::SetFont() {
    FillIfBlank(Controls.txtBGColor, "000000");
    FillIfBlank(Controls.txtFontColor,
                "00bfff"); // small letters here, capitals in ResetFont: both are settled
    FillIfBlank(Controls.txtFontType, "Arial");
    settings.BuildFontHeader(Trim(Controls.txtBGColor.Text()), Trim(Controls.txtFontColor.Text()),
                             Trim(Controls.txtFontType.Text()), Tag(Controls.chkBold, "<B>"),
                             Tag(Controls.chkItalics, "<I>"), Tag(Controls.chkUnderline, "<U>"),
                             Tag(Controls.chkStrikethrough, "<S>"));
}

void Options::ResetFont() {
    ResetPart(Reset::Font);
    for (auto* box :
         {&Controls.chkBold, &Controls.chkItalics, &Controls.chkUnderline, &Controls.chkStrikethrough})
        box->SetValue(0);
    settings.BuildFontHeader(Controls.txtBGColor.Text(), Controls.txtFontColor.Text(),
                             Controls.txtFontType.Text(), "", "", "", "");
}

void Options::ChooseFont() {
    if (auto font = platform.Boxes().Font("Font Type", Controls.txtFontType.Text()))
        Controls.txtFontType.SetText(*font);
}

} // namespace halyard
