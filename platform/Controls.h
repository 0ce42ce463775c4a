#pragma once

// The operator's controls as plain values. A handler runs when the value changes, whether a person or the
// program changed it; setting the value that is there runs nothing. A view binds to `onView` to learn what to
// redraw and writes back through the same setters. Texts are Windows-1252.

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

/// What every control has. `Name` is the control's name in code, such as "chkAWOn" or "lblStat(3)".
class Control {
  public:
    Control(std::string name, std::string caption) : Name(std::move(name)), caption(std::move(caption)) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string Name;
    std::string ToolTip;
    /// Something that the view shows has changed.
    std::function<void()> onView;

    const std::string& Caption() const { return caption; }
    void SetCaption(const std::string& text) { Change(caption, text); }
    bool Enabled() const { return enabled; }
    void SetEnabled(bool value) { Change(enabled, value); }
    bool Visible() const { return visible; }
    void SetVisible(bool value) { Change(visible, value); }
    /// Colours as the theme gives them: blue-green-red integers, negative for a system colour.
    int BackColor() const { return backColor; }
    int ForeColor() const { return foreColor; }
    void SetColors(int back, int fore) { Change(backColor, back), Change(foreColor, fore); }

  protected:
    ~Control() = default;
    void Redraw() const {
        if (onView) onView();
    }
    /// True when `field` took a new value.
    template <typename T>
    bool Change(T& field, const T& value) {
        if (field == value) return false;
        field = value;
        Redraw();
        return true;
    }

  private:
    std::string caption;
    bool enabled = true;
    bool visible = true;
    int backColor = 0;
    int foreColor = 0;
};

/// A group of controls with its caption.
class Frame : public Control {
  public:
    explicit Frame(std::string name, std::string text = {}) : Control(std::move(name), std::move(text)) {}
};

class Label : public Control {
  public:
    explicit Label(std::string name, std::string text = {}) : Control(std::move(name), std::move(text)) {}
    std::function<void()> Click;
};

class Button : public Control {
  public:
    Button(std::string name, std::string text) : Control(std::move(name), std::move(text)) {}
    std::function<void()> Click;
    bool Bold() const { return bold; }
    void SetBold(bool value) { Change(bold, value); }
    /// A press; a disabled button takes none.
    void Press() const {
        if (Enabled() && Click) Click();
    }

  private:
    bool bold = false;
};

/// 0 or 1.
class CheckBox : public Control {
  public:
    CheckBox(std::string name, std::string text, int value = 0)
        : Control(std::move(name), std::move(text)), value(value) {}
    std::function<void()> Click;
    int Value() const { return value; }
    /// Other values than 0 and 1 change nothing.
    void SetValue(int wanted) {
        if ((wanted == 0 || wanted == 1) && Change(value, wanted) && Click) Click();
    }

  private:
    int value;
};

class TextBox : public Control {
  public:
    explicit TextBox(std::string name, std::string text = {}, std::size_t maxLength = 0)
        : Control(std::move(name), {}), MaxLength(maxLength), text(std::move(text)) {}
    /// What a person can type at most; 0 is no limit. Text set by program is not cut.
    const std::size_t MaxLength;
    std::function<void()> LostFocus;
    std::function<void(int key)> KeyPress;
    const std::string& Text() const { return text; }
    void SetText(const std::string& value) { Change(text, value); }
    /// Finer news for a view, in the place of `onView`: this came at the end.
    std::function<void(const std::string& added)> onAppended;
    /// Adds to the end, which a view scrolls to.
    void Append(const std::string& added) {
        text += added;
        if (onAppended)
            onAppended(added);
        else
            Redraw();
    }

  private:
    std::string text;
};

/// Lines, counted from 0 as list boxes do; a selection of -1 is none.
class ListBox : public Control {
  public:
    explicit ListBox(std::string name) : Control(std::move(name), {}) {}
    std::function<void()> Click; ///< the selection has changed, or the selected line was clicked again
    std::function<void()> DblClick;
    std::function<void(int key)> KeyDown;
    std::function<void(int button)> MouseDown;
    /// Finer news for a view, besides `onView`: a line at this index came, or went; -1 is all lines went.
    std::function<void(int index)> onInserted, onRemoved;

    int ListCount() const { return static_cast<int>(lines.size()); }
    /// An empty text outside the lines.
    const std::string& List(int index) const;
    void AddItem(const std::string& line);
    /// False, and no change, when there is no such line. A selection on it is lost; one behind it moves
    /// along. Neither runs Click, nor does the loss of the selection by Clear.
    bool RemoveItem(int index);
    void Clear();
    int ListIndex() const { return selected; }
    /// Selects a line, or none with -1; any other index changes nothing. Runs Click when the selection
    /// changes.
    void Select(int index);
    /// The text of the selected line, empty when none is.
    const std::string& Text() const { return List(selected); }

  private:
    std::deque<std::string> lines;
    int selected = -1;
};

/// Option buttons of which one is chosen.
class OptionGroup : public Control {
  public:
    OptionGroup(std::string name, std::vector<std::string> captions)
        : Control(std::move(name), {}), Captions(std::move(captions)) {}
    const std::vector<std::string> Captions;
    std::function<void(int index)> Click;
    int Index() const { return index; }
    /// An index without a button changes nothing.
    void Select(int wanted) {
        if (wanted >= 0 && wanted < static_cast<int>(Captions.size()) && Change(index, wanted) && Click)
            Click(index);
    }

  private:
    int index = 0;
};

/// A text with a list to choose from.
class ComboBox : public Control {
  public:
    explicit ComboBox(std::string name) : Control(std::move(name), {}) {}
    const std::vector<std::string>& Items() const { return items; }
    void AddItem(const std::string& item) {
        items.insert(items.end() - static_cast<std::ptrdiff_t>(further), item);
        Redraw();
    }
    /// Offers these behind the added ones, in the place of those that were offered so before. The text stays.
    void OfferFurther(const std::vector<std::string>& others);
    const std::string& Text() const { return text; }
    void SetText(const std::string& value) { Change(text, value); }

  private:
    std::vector<std::string> items;
    std::size_t further = 0; ///< how many of the last items are no added ones
    std::string text;
};

/// Lines in a list that opens, of which one is chosen; an index of -1 is none.
class ChoiceBox : public Control {
  public:
    explicit ChoiceBox(std::string name) : Control(std::move(name), {}) {}
    std::function<void(int index)> Click;
    const std::vector<std::string>& Items() const { return items; }
    int Index() const { return index; }
    /// The chosen line, empty when none is.
    std::string Text() const;
    /// Other lines, one of them chosen, or none. Runs nothing.
    void SetItems(const std::vector<std::string>& lines, int chosen);
    /// An index without a line changes nothing.
    void Select(int wanted);

  private:
    std::vector<std::string> items;
    int index = -1;
};

/// A menu entry, or with `Items` a menu. A caption of "-" is a separator.
class Menu : public Control {
  public:
    Menu(std::string name, std::string text) : Control(std::move(name), std::move(text)) {}
    std::function<void()> Click;
    std::vector<Menu*> Items;
    /// Opens the menu at the pointer: set by the view.
    std::function<void()> onPopup;
    void Popup() const {
        if (onPopup) onPopup();
    }
};

enum class WindowState { Normal, Minimized, Maximized };

/// A window. Sizes are in twips, 15 to a pixel of a screen with 96 dots an inch.
class Form : public Control {
  public:
    Form(std::string name, std::string title) : Control(std::move(name), std::move(title)) {}
    std::function<void()> Resize;
    int Width() const { return width; }
    int Height() const { return height; }
    WindowState State() const { return state; }
    // Each runs Resize when it changes something.
    void SetWidth(int value) { ChangeSize(width, value); }
    void SetHeight(int value) { ChangeSize(height, value); }
    void SetState(WindowState value) { ChangeSize(state, value); }

  private:
    template <typename T>
    void ChangeSize(T& field, T value) {
        if (Change(field, value) && Resize) Resize();
    }

    int width = 0;
    int height = 0;
    WindowState state = WindowState::Normal;
};

} // namespace halyard
