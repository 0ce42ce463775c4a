#include "surface/windows/frmCcoms.h"

#include "base/Text.h"
#include "platform/Platform.h"
#include "state/Options.h"

#include <array>

namespace halyard {

namespace {

/// The label of each ccom, by ccom.
constexpr std::array<std::size_t, CcomCount> LabelIndices{
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 16, 11, 12, 13, 14, 15, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 28};

} // namespace

frmCcoms::frmCcoms(const SurfaceContext& context) : Edited(context) {
    form.SetVisible(false);
    chkComments.ToolTip = "This let's you comment after a ccom, such as \"ban user/comment\".";
    cmdSetCcoms.Click = [this] { SetClicked(); };
    cmdResetCcoms.Click = [this] { ResetClicked(); };
}

const Label& frmCcoms::LabelOf(int ccom) const {
    return lblMisc[LabelIndices[static_cast<std::size_t>(ccom)]];
}

void frmCcoms::Fill() {
    chkComments.SetValue(0);
    ShowTexts();
}

void frmCcoms::ShowTexts() {
    const auto& ccoms = context.options.Ccoms;
    for (int index = 0; auto& box : txtCcom) box.SetText(ccoms.GetCcom(index++));
    if (ccoms.GetCcomComments()) chkComments.SetValue(1);
    txtTrigger.SetText(ccoms.GetTrigger());
    Settle();
}

std::string frmCcoms::Content() const {
    auto content = txtTrigger.Text() + (chkComments.Value() == 1 ? "\n1\n" : "\n0\n");
    for (const auto& box : txtCcom) content += box.Text() + '\n';
    return content;
}

void frmCcoms::SetClicked() {
    Collection<std::string> names;
    for (const auto& box : txtCcom) {
        if (Trim(box.Text()).empty())
            return context.platform.Boxes().Error(
                "Error", "Please make sure there are no blank spaces for any ccoms!");
        names.Add(NormalizeName(box.Text()));
    }
    // The trigger is only trimmed: one with a blank or a capital seldom meets a command line.
    context.options.Ccoms.SetCcoms(names, Trim(txtTrigger.Text()), chkComments.Value() == 1);
    Settle();
}

void frmCcoms::ResetClicked() {
    context.options.Ccoms.DefaultCcoms();
    chkComments.SetValue(0);
    ShowTexts();
}

} // namespace halyard
