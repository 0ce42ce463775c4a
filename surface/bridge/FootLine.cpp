#include "surface/bridge/FootLine.h"

#include "platform/Platform.h"
#include "surface/look/Theme.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int SeenFor = 10000; // ms
constexpr std::size_t Longest = 500;

constexpr std::array<const char*, FootFields> FieldNames = {"Connection", "Rooms",  "Rates",
                                                            "Waiting",    "Ledger", "Alarms"};

/// Colours that the words can be read on, and that can be told apart without seeing red or green.
void PaintField(Label& label, FootField::Level level) {
    constexpr int white = 0xFFFFFF, black = 0x000000;
    switch (level) {
    case FootField::Level::Plain: return label.SetColors(Theme::WindowBack, Theme::WindowFore);
    case FootField::Level::Good: return label.SetColors(0x4B6B0A, white);
    case FootField::Level::Care: return label.SetColors(0x3FC8FF, black);
    case FootField::Level::Bad: return label.SetColors(0x1C1CB0, white);
    }
}

std::string TwoDigits(std::int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

} // namespace

FootLine::FootLine(Platform& platform)
    : platform(platform), start(platform.Milliseconds()), timer(platform.NewTimer()) {
    timer->SetInterval(SeenFor);
    timer->onTick = [this] {
        timer->SetEnabled(false);
        ShowTold("");
    };
    ShowTold("");
}

void FootLine::ShowTold(const std::string& line) {
    lblFoot.SetCaption(line);
    // The one comes before the other goes, so that the focus has somewhere to go.
    if (!line.empty()) lblFoot.SetVisible(true);
    FrameStanding.SetVisible(line.empty());
    lblFoot.SetVisible(!line.empty());
}

void FootLine::Stand(const std::array<FootField, FootFields>& fields) {
    for (std::size_t index = 0; index < fields.size(); ++index) {
        lblStanding[index].SetCaption(fields[index].words);
        PaintField(lblStanding[index], fields[index].level);
    }
}

const char* FootFieldName(std::size_t field) { return field < FootFields ? FieldNames[field] : ""; }

void FootLine::Tell(const std::string& text) {
    const auto line = OneLine(text);
    if (lstTold.ListCount() >= Kept) lstTold.RemoveItem(0);
    lstTold.AddItem(Time() + "  " + line);
    ShowTold(line);
    timer->SetInterval(SeenFor); // from now on, where an older line is still seen
    timer->SetEnabled(true);
    if (onTold) onTold();
}

std::string FootLine::Time() const {
    const auto seconds = (platform.Milliseconds() - start) / 1000;
    return std::to_string(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" +
           TwoDigits(seconds % 60);
}

std::string OneLine(std::string text) {
    if (text.size() > Longest) text.replace(Longest, text.npos, "...");
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 32 || c == 127; }, ' ');
    return text;
}

} // namespace halyard
