#include "surface/bridge/watch/AlarmTermsWindow.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"
#include "surface/look/ControlArrays.h"

#include <optional>

namespace halyard {

namespace {

std::optional<int> NumberIn(const TextBox& box, int least, int most) {
    const auto text = Trim(box.Text());
    if (text.empty() || !IsNumeric(text)) return std::nullopt;
    const auto number = ToInt32(text);
    if (!number || *number < least || *number > most) return std::nullopt;
    return *number;
}

std::string KindLine(AlarmKind kind, const AlarmTerm& term) {
    auto line = std::string(TextOf(kind).words) + ": ";
    if (!term.on) return line + "off";
    if (BoundsOf(kind).limit)
        line +=
            "more than " + std::to_string(term.limit) + " in " + std::to_string(term.minutes) + " minutes";
    else if (BoundsOf(kind).minutes)
        line += "after " + std::to_string(term.minutes) + " minutes";
    else
        line += "at once";
    return line + "; again after " + std::to_string(term.rest);
}

void TakeOffLine(ListBox& list, int key) {
    if (key == DeleteKey) list.RemoveItem(list.ListIndex());
}

std::vector<std::string> LinesOf(const ListBox& list) {
    std::vector<std::string> lines;
    for (int line = 0; line < list.ListCount(); ++line) lines.push_back(list.List(line));
    return lines;
}

} // namespace

AlarmTermsWindow::AlarmTermsWindow(const SurfaceContext& context, BridgeFile& file)
    : Opened(context), file(file) {
    form.SetVisible(false);
    cmdApply.Click = [this] { Apply(); };
    cmdDefaults.Click = [this] { Fill(AlarmTerms()); };
    lstKinds.Click = [this] {
        if (lstKinds.ListIndex() >= 0 && lstKinds.ListIndex() != selected && TakeKind()) ShowKind();
    };
    lstCommand.KeyDown = [this](int key) { TakeOffLine(lstCommand, key); };
    lstNames.KeyDown = [this](int key) { TakeOffLine(lstNames, key); };
    txtCommand.KeyPress = [this](int key) {
        if (key != EnterKey) return;
        lstCommand.AddItem(txtCommand.Text()); // as it stands: an argument may be blank
        txtCommand.SetText("");
    };
    txtName.KeyPress = [this](int key) {
        if (key == EnterKey) AddName();
    };
}

void AlarmTermsWindow::Fill() { Fill(file.Alarms()); }

void AlarmTermsWindow::Fill(const AlarmTerms& shown) {
    terms = shown;
    chkTray.SetValue(terms.tray);
    chkList.SetValue(terms.list);
    chkDaily.SetValue(terms.daily);
    lstCommand.Clear();
    lstNames.Clear();
    for (const auto& argument : terms.command) lstCommand.AddItem(argument);
    for (const auto& name : terms.messages) lstNames.AddItem(name);
    txtCommand.SetText("");
    txtName.SetText("");
    lblApplied.SetCaption("");
    selected = 0;
    FillKinds();
    ShowKind();
}

void AlarmTermsWindow::FillKinds() {
    const auto line = selected;
    selected = -1; // no click of the list's own takes the boxes
    lstKinds.Clear();
    for (std::size_t index = 1; index < AlarmKindCount; ++index) {
        const auto kind = static_cast<AlarmKind>(index);
        lstKinds.AddItem(KindLine(kind, terms.Of(kind)));
    }
    selected = line;
    lstKinds.Select(line);
}

AlarmKind AlarmTermsWindow::Selected() const { return static_cast<AlarmKind>(selected + 1); }

void AlarmTermsWindow::ShowKind() {
    selected = lstKinds.ListIndex() >= 0 ? lstKinds.ListIndex() : 0;
    const auto& term = terms.Of(Selected());
    const auto bounds = BoundsOf(Selected());
    lblKind.SetCaption(std::string(TextOf(Selected()).says));
    chkKind.SetCaption(std::string(TextOf(Selected()).words) + " rings");
    chkKind.SetValue(term.on);
    txtLimit.SetText(std::to_string(term.limit));
    txtMinutes.SetText(std::to_string(term.minutes));
    txtRest.SetText(std::to_string(term.rest));
    lblLimit.SetVisible(bounds.limit), txtLimit.SetVisible(bounds.limit);
    lblMinutes.SetVisible(bounds.minutes), txtMinutes.SetVisible(bounds.minutes);
}

bool AlarmTermsWindow::TakeKind() {
    if (selected < 0) return true;
    const auto bounds = BoundsOf(Selected());
    auto& term = terms.Of(Selected());
    const auto limit = bounds.limit ? NumberIn(txtLimit, 0, AlarmTerms::LargestLimit) : term.limit;
    const auto minutes = bounds.minutes ? NumberIn(txtMinutes, 1, AlarmTerms::LongestMinutes) : term.minutes;
    const auto rest = NumberIn(txtRest, 0, AlarmTerms::LongestMinutes);
    if (!limit || !minutes || !rest) {
        lblApplied.SetCaption("Not taken: whole numbers, minutes from 1 to " +
                              std::to_string(AlarmTerms::LongestMinutes) + ".");
        lstKinds.Select(selected);
        return false;
    }
    term = {chkKind.Value() == 1, *limit, *minutes, *rest};
    return true;
}

void AlarmTermsWindow::AddName() {
    const auto name = NormalizeName(txtName.Text());
    txtName.SetText("");
    if (!name.empty() && FindLine(lstNames, name) < 0) lstNames.AddItem(name);
}

void AlarmTermsWindow::Apply() {
    if (!TakeKind()) return;
    terms.tray = chkTray.Value() == 1;
    terms.list = chkList.Value() == 1;
    terms.daily = chkDaily.Value() == 1;
    terms.command = LinesOf(lstCommand);
    terms.messages = LinesOf(lstNames);
    FillKinds();
    const bool kept = file.SetAlarms(terms);
    if (!kept && file.Alarms() != terms)
        return lblApplied.SetCaption("Not applied: at most " + std::to_string(AlarmTerms::MostNames) +
                                     " names and " + std::to_string(AlarmTerms::MostArguments) +
                                     " arguments, the first a program, and no control characters.");
    if (onApplied) onApplied(terms);
    lblApplied.SetCaption(kept ? "Applied."
                               : "Applied until the program ends: bridge.toml can't be written.");
}

} // namespace halyard
