#pragma once

// What a list and the box that adds to it have in common on all panels.

#include <functional>
#include <string>

namespace halyard {

class Dialogs;
class ListBox;
class TextBox;

using ListAct = std::function<void(const std::string& name)>;

/// Enter in the box adds what it holds, or tells with `badLength` that it hasn't 2 to 100 characters; the box
/// is emptied either way. A blank box does nothing.
void BindEntry(TextBox& box, Dialogs& boxes, const char* badLength, ListAct add);
/// A double click on a line, or the Delete key on the selected one, removes it.
void BindRemoval(ListBox& list, ListAct remove);

} // namespace halyard
