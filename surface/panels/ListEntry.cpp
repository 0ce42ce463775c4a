#include "surface/panels/ListEntry.h"

#include "base/Text.h"
#include "platform/Dialogs.h"
#include "surface/look/ControlArrays.h"

#include <utility>

namespace halyard {

namespace {

constexpr std::size_t ShortestName = 2;
constexpr std::size_t LongestName = 100;

} // namespace

void BindEntry(TextBox& box, Dialogs& boxes, const char* badLength, ListAct add) {
    box.KeyPress = [&box, &boxes, badLength, add = std::move(add)](int key) {
        if (key != EnterKey) return;
        const auto text = box.Text();
        const auto length = Trim(text).size();
        if (length >= ShortestName && length <= LongestName)
            add(text);
        else if (length != 0)
            boxes.Note("Note", badLength);
        box.SetText("");
    };
}

void BindRemoval(ListBox& list, ListAct remove) {
    list.DblClick = [&list, remove = std::move(remove)] {
        const auto line = list.Text(); // the line goes while it is being removed
        if (list.ListIndex() >= 0) remove(line);
    };
    list.KeyDown = [&list](int key) {
        if (key == DeleteKey && list.DblClick) list.DblClick();
    };
}

} // namespace halyard
