#include "platform/Table.h"

namespace halyard {

const TableBox::Line& TableBox::At(int index) const {
    static const Line none;
    return Has(index) ? lines[static_cast<std::size_t>(index)] : none;
}

void TableBox::SetAll(std::vector<Line> others) {
    lines.assign(std::make_move_iterator(others.begin()), std::make_move_iterator(others.end()));
    chosen = -1;
    if (onReset) onReset();
    Redraw();
}

void TableBox::Add(std::vector<Line> further) {
    if (further.empty()) return;
    for (auto& line : further) lines.push_back(std::move(line));
    if (onAdded) onAdded(static_cast<int>(further.size()));
    Redraw();
}

void TableBox::RemoveFirst(int count) {
    if (count <= 0 || count > Count()) return;
    lines.erase(lines.begin(), lines.begin() + count);
    chosen = chosen < count ? -1 : chosen - count;
    if (onFirstGone) onFirstGone(count);
    Redraw();
}

void TableBox::Set(int index, Line line) {
    if (!Has(index) || At(index) == line) return;
    lines[static_cast<std::size_t>(index)] = std::move(line);
    if (onChanged) onChanged(index);
}

void TableBox::SetTick(int index, bool on) {
    const auto wanted = on ? Tick::On : Tick::Off;
    if (!Has(index) || At(index).tick == Tick::None || At(index).tick == wanted) return;
    lines[static_cast<std::size_t>(index)].tick = wanted;
    if (onChanged) onChanged(index);
    if (Ticked) Ticked(index);
}

std::vector<int> TableBox::TickedLines() const {
    std::vector<int> ticked;
    for (int index = 0; index < Count(); ++index)
        if (At(index).tick == Tick::On) ticked.push_back(index);
    return ticked;
}

void TableBox::Choose(int index) {
    if ((index == -1 || Has(index)) && Change(chosen, index) && Click) Click();
}

} // namespace halyard
