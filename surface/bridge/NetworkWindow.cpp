#include "surface/bridge/NetworkWindow.h"

#include "base/Text.h"
#include "bridge/networks/BridgeFile.h"
#include "bridge/networks/Refusals.h"
#include "surface/bridge/ChosenNetwork.h"
#include "surface/bridge/FootLine.h"

namespace halyard {

namespace {

constexpr const char* NewLine = "\r\n";

std::string WaysText(const std::string& name, const Network* network) {
    if (!network) return "\"" + name + "\" is no longer defined: nobody is signed on there.";
    std::string text = "Hosts: ";
    if (network->hosts.empty()) text += "those of the list";
    for (std::size_t index = 0; index < network->hosts.size(); ++index)
        text += (index == 0 ? "" : ", ") + network->hosts[index];
    text += ". Port: " + std::to_string(network->port) + "." + NewLine;
    if (network->ways.none()) return text + "Everything is done as laid down.";
    for (std::size_t index = 0; index < WayCount; ++index) {
        if (!network->ways.test(index)) continue;
        const auto& way = TextOf(static_cast<Departure>(index));
        text += std::string(NewLine) + way.name + NewLine + "  Laid down: " + way.laidDown + NewLine +
                "  Instead: " + way.instead + NewLine;
    }
    return text;
}

std::string Codes(int code) {
    constexpr const char* digits = "0123456789ABCDEF";
    if (code < 0) return "without a code";
    return std::to_string(code) + " (0x" + digits[code >> 4 & 15] + digits[code & 15] + ")";
}

std::string MeaningsText() {
    std::string text;
    for (const auto& refusal : Refusals())
        text += std::string(RefusalKindText(refusal.kind)) + " " + Codes(refusal.code) + ": " +
                refusal.sentence + " " + refusal.advice + NewLine;
    return text;
}

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + NewLine;
    return text;
}

} // namespace

NetworkWindow::NetworkWindow(const SurfaceContext& context, BridgeFile& file, ChosenNetwork& chosen,
                             FootLine& foot, NetworkCheck& check)
    : Opened(context), management(file, [&foot](const std::string& text) { foot.Tell(text); }),
      check(context, chosen, check), foot(foot), file(file), chosen(chosen) {
    form.SetVisible(false);
    optPage.Click = [this](int page) { ShowPage(page); };
    cmbChosen.Click = [this](int index) {
        if (index < static_cast<int>(this->file.Networks().size())) this->chosen.Choose(cmbChosen.Text());
    };
    cmdReadAgain.Click = [this] { ReadAgain(); };
}

void NetworkWindow::ShowAt(Page page) {
    if (!Loaded()) Refresh();
    Show();
    optPage.Select(page);
}

void NetworkWindow::Form_Unload() {
    if (Loaded()) management.Apply();
    Opened::Form_Unload();
}

void NetworkWindow::Fill() {
    txtMeanings.SetText(MeaningsText());
    ShowPage(optPage.Index());
}

void NetworkWindow::Refresh() {
    OfferNetworks(cmbChosen, file, chosen.Name());
    txtWays.SetText(WaysText(chosen.Name(), chosen.Defined()));
    const auto& problems = file.Problems();
    txtProblems.SetText(problems.empty() ? "No mistake was found." : Lines(problems));
    management.Apply(); // of the network that was chosen until now
    management.Fill(chosen.Name());
}

Frame& NetworkWindow::FrameOf(Page page) {
    switch (page) {
    case Ways: return FrameWays;
    case Management: return management.FrameManagement;
    case Check: return check.FrameCheck;
    case Meanings: return FrameMeanings;
    case Told: return FrameTold;
    }
    return FrameWays;
}

void NetworkWindow::ShowPage(int page) {
    if (page != Management) management.Apply();
    for (auto other : {Ways, Management, Check, Meanings, Told}) FrameOf(other).SetVisible(other == page);
}

void NetworkWindow::ReadAgain() {
    management.Apply();
    file.Load();
    chosen.TakeOver();
    if (management.onApplied) management.onApplied(chosen.OfSignOn()); // the terms may be others now
}

void OfferNetworks(ChoiceBox& box, const BridgeFile& file, const std::string& chosen) {
    std::vector<std::string> names;
    int index = -1;
    for (const auto& network : file.Networks()) {
        if (SameName(network.name, chosen)) index = static_cast<int>(names.size());
        names.push_back(network.name);
    }
    if (index < 0) {
        index = static_cast<int>(names.size());
        names.push_back(chosen + " (not defined)");
    }
    box.SetItems(names, index);
}

} // namespace halyard
