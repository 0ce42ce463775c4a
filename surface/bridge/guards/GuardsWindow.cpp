#include "surface/bridge/guards/GuardsWindow.h"

#include "bridge/networks/BridgeFile.h"
#include "oscar/TillerSock.h"

#include <utility>

namespace halyard {

namespace {

/// "acted 3 times", or with "would have " before it.
std::string Acted(const char* would, const char* never, std::int64_t count) {
    if (count == 0) return never;
    return std::string(would) + "acted " + (count == 1 ? "once" : std::to_string(count) + " times");
}

} // namespace

GuardsWindow::GuardsWindow(const SurfaceContext& context, BridgeFile& file) : Opened(context), file(file) {
    form.SetVisible(false);
    std::optional<GuardGroup> group;
    for (const auto& row : GuardList()) {
        if (row.group != group) shown.push_back(nullptr);
        group = row.group;
        shown.push_back(&row);
    }
    cmdRecommended.Click = [this] {
        auto terms = this->file.Guards();
        for (const auto& row : GuardList())
            if (IsRecommended(row.group)) terms.Decide(row.departure, Departures::Guard::On);
        Keep(terms);
    };
    cmdAsNetwork.Click = [this] {
        if (const auto* row = RowAt(tblGuards.Index())) Decide(row->departure, Departures::Guard::Unset);
    };
    tblGuards.Click = [this] { ShowChosen(); };
    tblGuards.Ticked = [this](int line) {
        if (const auto* row = RowAt(line))
            Decide(row->departure, tblGuards.At(line).tick == TableBox::Tick::On ? Departures::Guard::On
                                                                                 : Departures::Guard::Off);
    };
}

const GuardRow* GuardsWindow::RowAt(int line) const {
    return line >= 0 && line < static_cast<int>(shown.size()) ? shown[static_cast<std::size_t>(line)]
                                                              : nullptr;
}

void GuardsWindow::Fill() {
    lblKept.SetCaption("");
    std::vector<TableBox::Line> lines;
    for (std::size_t line = 0; line < shown.size(); ++line)
        lines.push_back(shown[line] ? LineOf(*shown[line])
                                    : TableBox::Line{{TitleOf(shown[line + 1]->group), "", ""}});
    tblGuards.SetAll(std::move(lines));
    ShowChosen();
    AskCounts();
}

void GuardsWindow::AskCounts() {
    if (!onCounts) return;
    onCounts([this](const GuardCounts& fresh) {
        counts = fresh;
        ShowLines();
    });
}

void GuardsWindow::Refresh() {
    if (Loaded()) ShowLines();
}

void GuardsWindow::ShowLines() {
    for (int line = 0; line < tblGuards.Count(); ++line) {
        const auto* row = RowAt(line);
        if (!row) continue;
        auto fresh = LineOf(*row);
        if (tblGuards.At(line) != fresh) tblGuards.Set(line, std::move(fresh));
    }
    ShowChosen();
}

TableBox::Line GuardsWindow::LineOf(const GuardRow& row) const {
    const bool on = context.control.Departs(row.departure);
    return {{std::string("    ") + row.title, StateOf(row.departure), CountOf(row)},
            on ? TableBox::Tick::On : TableBox::Tick::Off};
}

std::string GuardsWindow::StateOf(Departure departure) const {
    const auto decision = file.Guards().Of(departure);
    if (decision != Departures::Guard::Unset) return decision == Departures::Guard::On ? "on" : "off";
    if (context.control.Switches().OfNetwork().test(static_cast<std::size_t>(departure))) return "by network";
    return context.control.Departs(departure) ? "by a guard" : "off";
}

std::string GuardsWindow::CountOf(const GuardRow& row) const {
    const auto& count = counts[static_cast<std::size_t>(row.departure)];
    if (context.control.Departs(row.departure) && (row.counted || count.acted > 0))
        return Acted("", "has not acted", count.acted);
    if (row.group == GuardGroup::Ways) return "";
    return row.counted ? Acted("would have ", "would not have acted", count.wouldHave) : "not counted";
}

void GuardsWindow::ShowChosen() {
    const auto* row = RowAt(tblGuards.Index());
    cmdAsNetwork.SetEnabled(row && file.Guards().Of(row->departure) != Departures::Guard::Unset);
    if (!row) return txtGuard.SetText("Choose a guard to read what it changes.");
    const auto& text = TextOf(row->departure);
    auto words = std::string("Laid down: ") + text.laidDown + "\r\nWith the guard: " + text.instead;
    if (row->departure == Departure::SilenceIsAskedAbout && onUnanswering)
        for (const auto& connection : onUnanswering())
            words += "\r\nNo answer ever came on " + connection + ": silence there means nothing.";
    txtGuard.SetText(words);
}

void GuardsWindow::Decide(Departure departure, Departures::Guard decision) {
    auto terms = file.Guards();
    terms.Decide(departure, decision);
    Keep(terms);
}

void GuardsWindow::Keep(const GuardTerms& terms) {
    const bool kept = file.SetGuards(terms);
    if (onApplied) onApplied(file.Guards());
    lblKept.SetCaption(kept ? "Kept; it holds from now on."
                            : "It holds until the program ends: bridge.toml can't be written.");
    Refresh();
}

} // namespace halyard
