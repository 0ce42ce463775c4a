#include "surface/bridge/watch/LiveTable.h"

#include <algorithm>
#include <iterator>

namespace halyard {

void LiveTable::Show(const std::vector<std::string>& keys, std::vector<TableBox::Line> lines) {
    const auto first = keys.empty() ? shown.end() : std::ranges::find(shown, keys.front());
    const auto left = static_cast<std::size_t>(shown.end() - first);
    const bool goesOn = left > 0 && left <= keys.size() && std::equal(first, shown.end(), keys.begin());
    if (!goesOn) {
        const auto chosen = box.Index() < 0 ? std::string() : shown[static_cast<std::size_t>(box.Index())];
        shown = keys;
        if (box.Count() > 0 || !lines.empty()) box.SetAll(std::move(lines));
        const auto again = std::ranges::find(shown, chosen);
        if (!chosen.empty() && again != shown.end()) box.Choose(static_cast<int>(again - shown.begin()));
        return;
    }
    box.RemoveFirst(static_cast<int>(first - shown.begin()));
    for (std::size_t index = 0; index < left; ++index)
        box.Set(static_cast<int>(index), std::move(lines[index]));
    box.Add({std::make_move_iterator(lines.begin() + static_cast<std::ptrdiff_t>(left)),
             std::make_move_iterator(lines.end())});
    shown = keys;
}

} // namespace halyard
