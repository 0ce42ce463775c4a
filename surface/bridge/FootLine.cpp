#include "surface/bridge/FootLine.h"

#include "platform/Platform.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int SeenFor = 10000; // ms
constexpr std::size_t Longest = 500;

std::string TwoDigits(std::int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

} // namespace

FootLine::FootLine(Platform& platform)
    : platform(platform), start(platform.Milliseconds()), timer(platform.NewTimer()) {
    timer->SetInterval(SeenFor);
    timer->onTick = [this] {
        timer->SetEnabled(false);
        lblFoot.SetCaption("");
    };
}

void FootLine::Tell(const std::string& text) {
    const auto line = OneLine(text);
    if (lstTold.ListCount() >= Kept) lstTold.RemoveItem(0);
    lstTold.AddItem(Time() + "  " + line);
    lblFoot.SetCaption(line);
    timer->SetInterval(SeenFor); // from now on, where an older line is still seen
    timer->SetEnabled(true);
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
