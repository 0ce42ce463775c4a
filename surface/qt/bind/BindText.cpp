#include "surface/look/ControlArrays.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/widgets/LogView.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr int NoLimit = 1'000'000;

class LineView : public QLineEdit {
  public:
    explicit LineView(TextBox& box) : box(box) {}

    void Sync() {
        const auto text = Shown(box.Text());
        if (text != this->text()) {
            const auto caret = cursorPosition();
            KeepLimit(text);
            setText(text);
            setCursorPosition(hasFocus() ? caret : 0);
        }
    }

    /// Text that the program has set may be longer than what a person can type.
    void KeepLimit(const QString& text) {
        const auto limit = box.MaxLength == 0 ? NoLimit : static_cast<int>(box.MaxLength);
        setMaxLength(std::max(limit, static_cast<int>(text.size())));
    }

    /// Tells the box that it is left, once until the caret comes back or something is typed.
    void Leave() {
        if (!std::exchange(left, true) && box.LostFocus) ByHand(box, [this] { box.LostFocus(); });
    }
    void Return() { left = false; }

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (!IsAway(*event)) Return();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        if (!IsAway(*event)) Leave();
    }

  private:
    /// The program's other windows and its menus do not count: the caret comes back from there.
    static bool IsAway(const QFocusEvent& event) {
        return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
               event.reason() == Qt::MenuBarFocusReason;
    }

    TextBox& box;
    bool left = false;
};

} // namespace

void LeaveBox() {
    if (auto* line = dynamic_cast<LineView*>(QApplication::focusWidget())) line->Leave();
}

QLineEdit* BindLine(TextBox& box, const std::string& name) {
    auto* widget = new LineView(box);
    widget->KeepLimit({});
    NameAfter(*widget, name);
    Follow(box, *widget, Paint::Field, [widget] { widget->Sync(); });
    QObject::connect(widget, &QLineEdit::textEdited, widget, [&box, widget](const QString& text) {
        widget->KeepLimit(text);
        widget->Return();
        box.SetText(Typed(text));
    });
    QObject::connect(widget, &QLineEdit::returnPressed, widget, [&box] {
        if (box.KeyPress) ByHand(box, [&] { box.KeyPress(EnterKey); });
    });
    return widget;
}

QLineEdit* BindPassword(TextBox& box, const std::string& name) {
    auto* widget = BindLine(box, name);
    widget->setEchoMode(QLineEdit::Password);
    return widget;
}

QPlainTextEdit* BindLog(TextBox& box, const std::string& name) {
    auto* widget = new LogView;
    NameAfter(*widget, name);
    Follow(box, *widget, Paint::Field, [&box, widget] { widget->Show(box.Text()); });
    box.onAppended = [widget](const std::string& added) { widget->Append(added); };
    QObject::connect(widget, &QObject::destroyed, [&box] { box.onAppended = nullptr; });
    return widget;
}

QPlainTextEdit* BindReading(TextBox& box, const std::string& name) {
    auto* widget = new LogView;
    NameAfter(*widget, name);
    Follow(box, *widget, Paint::Field, [&box, widget] {
        if (!widget->Show(box.Text())) return;
        widget->moveCursor(QTextCursor::Start);
    });
    return widget;
}

namespace {

void KeepItems(QComboBox& widget, const std::vector<std::string>& items) {
    QStringList lines;
    for (const auto& item : items) lines.append(Shown(item));
    const auto at = [&widget](int index) { return widget.itemText(index); };
    for (int index = 0; index < lines.size(); ++index)
        if (index >= widget.count())
            widget.addItem(lines[index]);
        else if (at(index) != lines[index])
            widget.setItemText(index, lines[index]);
    while (widget.count() > lines.size()) widget.removeItem(widget.count() - 1);
}

} // namespace

QComboBox* BindCombo(ComboBox& box, const std::string& name) {
    auto* widget = new QComboBox;
    widget->setEditable(true);
    widget->setInsertPolicy(QComboBox::NoInsert);
    widget->setCompleter(nullptr); // the text stays as it is typed
    widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    NameAfter(*widget, name);
    Follow(box, *widget, Paint::Field, [&box, widget] {
        const QSignalBlocker quiet(widget);
        KeepItems(*widget, box.Items());
        if (const auto text = Shown(box.Text()); text != widget->currentText()) widget->setEditText(text);
    });
    QObject::connect(widget, &QComboBox::editTextChanged, widget,
                     [&box](const QString& text) { box.SetText(Typed(text)); });
    return widget;
}

QComboBox* BindChoice(ChoiceBox& box, const std::string& name) {
    auto* widget = new QComboBox;
    widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    NameAfter(*widget, name);
    Follow(box, *widget, Paint::Button, [&box, widget] {
        const QSignalBlocker quiet(widget);
        KeepItems(*widget, box.Items());
        widget->setCurrentIndex(box.Index());
    });
    QObject::connect(widget, &QComboBox::currentIndexChanged, widget,
                     [&box](int index) { ByHand(box, [&] { box.Select(index); }); });
    return widget;
}

} // namespace halyard
