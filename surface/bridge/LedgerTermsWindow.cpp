#include "surface/bridge/LedgerTermsWindow.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"
#include "surface/look/ControlArrays.h"

#include <optional>

namespace halyard {

namespace {

/// Nothing for what is no whole number of days.
std::optional<int> DaysIn(const TextBox& box) {
    const auto text = Trim(box.Text());
    if (text.empty() || !IsNumeric(text)) return std::nullopt;
    const auto days = ToInt32(text);
    if (!days || *days < 0 || *days > LedgerTerms::LongestDays) return std::nullopt;
    return *days;
}

} // namespace

LedgerTermsWindow::LedgerTermsWindow(const SurfaceContext& context, BridgeFile& file)
    : Opened(context), file(file) {
    form.SetVisible(false);
    cmdApply.Click = [this] { Apply(); };
    txtNoAppeal.KeyPress = [this](int key) {
        if (key == EnterKey) AddNoAppeal();
    };
    lstNoAppeal.KeyDown = [this](int key) {
        if (key == DeleteKey) lstNoAppeal.RemoveItem(lstNoAppeal.ListIndex());
    };
}

void LedgerTermsWindow::Fill() {
    const auto& terms = file.Ledger();
    chkKeep.SetValue(terms.keep);
    chkEvidence.SetValue(terms.evidence);
    txtTextDays.SetText(std::to_string(terms.textDays));
    txtActDays.SetText(std::to_string(terms.actDays));
    chkAnswers.SetValue(terms.answers);
    chkAppeals.SetValue(terms.appeals);
    txtWhomToAsk.SetText(terms.whomToAsk);
    txtNoAppeal.SetText("");
    lstNoAppeal.Clear();
    for (const auto& name : terms.noAppealOf) lstNoAppeal.AddItem(name);
    lblApplied.SetCaption("");
}

void LedgerTermsWindow::AddNoAppeal() {
    const auto name = NormalizeName(txtNoAppeal.Text());
    txtNoAppeal.SetText("");
    if (!name.empty() && FindLine(lstNoAppeal, name) < 0) lstNoAppeal.AddItem(name);
}

void LedgerTermsWindow::Apply() {
    const auto textDays = DaysIn(txtTextDays);
    const auto actDays = DaysIn(txtActDays);
    if (!textDays || !actDays)
        return lblApplied.SetCaption("Not applied: days are whole numbers from 0 to " +
                                     std::to_string(LedgerTerms::LongestDays) + ".");
    LedgerTerms terms;
    terms.keep = chkKeep.Value() == 1;
    terms.evidence = chkEvidence.Value() == 1;
    terms.textDays = *textDays;
    terms.actDays = *actDays;
    terms.answers = chkAnswers.Value() == 1;
    terms.appeals = chkAppeals.Value() == 1;
    terms.whomToAsk = Trim(txtWhomToAsk.Text());
    for (int line = 0; line < lstNoAppeal.ListCount(); ++line)
        terms.noAppealOf.push_back(lstNoAppeal.List(line));
    const bool kept = file.SetLedger(terms);
    if (!kept && file.Ledger() != terms)
        return lblApplied.SetCaption("Not applied: at most " + std::to_string(LedgerTerms::MostRefused) +
                                     " names, and no control characters.");
    if (onApplied) onApplied(terms);
    lblApplied.SetCaption(kept ? "Applied."
                               : "Applied until the program ends: bridge.toml can't be written.");
}

} // namespace halyard
