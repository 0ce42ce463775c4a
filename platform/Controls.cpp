#include "platform/Controls.h"

namespace halyard {

const std::string& ListBox::List(int index) const {
    static const std::string none;
    return index >= 0 && index < ListCount() ? lines[static_cast<std::size_t>(index)] : none;
}

void ListBox::AddItem(const std::string& line) {
    lines.push_back(line);
    if (onInserted) onInserted(ListCount() - 1);
    Redraw();
}

bool ListBox::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) return false;
    lines.erase(lines.begin() + index);
    if (selected == index)
        selected = -1;
    else if (selected > index)
        --selected;
    if (onRemoved) onRemoved(index);
    Redraw();
    return true;
}

void ListBox::Clear() {
    if (lines.empty()) return;
    lines.clear();
    selected = -1;
    if (onRemoved) onRemoved(-1);
    Redraw();
}

void ListBox::Select(int index) {
    if (index < -1 || index >= ListCount()) return;
    if (Change(selected, index) && Click) Click();
}

void ComboBox::OfferFurther(const std::vector<std::string>& others) {
    auto wanted = items;
    wanted.resize(items.size() - further);
    wanted.insert(wanted.end(), others.begin(), others.end());
    further = others.size();
    Change(items, wanted);
}

std::string ChoiceBox::Text() const {
    return index < 0 ? std::string() : items[static_cast<std::size_t>(index)];
}

void ChoiceBox::SetItems(const std::vector<std::string>& lines, int chosen) {
    const bool isLine = chosen >= 0 && chosen < static_cast<int>(lines.size());
    items = lines;
    index = isLine ? chosen : -1;
    Redraw();
}

void ChoiceBox::Select(int wanted) {
    if (wanted >= 0 && wanted < static_cast<int>(items.size()) && Change(index, wanted) && Click)
        Click(index);
}

} // namespace halyard
