#include "surface/qt/bind/Bind.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

namespace halyard {

namespace {

constexpr int SideRoom = 8; // pixels beside the caption, besides the style's own

class ButtonView : public QPushButton {
  public:
    QSize sizeHint() const override { return QPushButton::sizeHint() + QSize(2 * SideRoom, 2); }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace

QPushButton* BindButton(Button& button) {
    auto* widget = new ButtonView;
    widget->setAutoDefault(true); // Enter presses it while it has the focus
    Follow(button, *widget, Paint::Button, [&button, widget] {
        widget->setText(ShownCaption(button.Caption()));
        auto font = widget->font();
        font.setBold(button.Bold());
        if (font != widget->font()) widget->setFont(font);
    });
    QObject::connect(widget, &QPushButton::clicked, widget,
                     [&button] { ByHand(button, [&] { button.Press(); }); });
    return widget;
}

QCheckBox* BindCheck(CheckBox& box) {
    auto* widget = new QCheckBox;
    Follow(box, *widget, Paint::Ground, [&box, widget] {
        const QSignalBlocker quiet(widget);
        widget->setText(ShownCaption(box.Caption()));
        widget->setChecked(box.Value() == 1);
    });
    QObject::connect(widget, &QCheckBox::toggled, widget,
                     [&box](bool checked) { ByHand(box, [&] { box.SetValue(checked ? 1 : 0); }); });
    return widget;
}

QWidget* BindOptions(OptionGroup& group, const std::string& name) {
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    auto* buttons = new QButtonGroup(widget);
    for (int index = 0; const auto& caption : group.Captions) {
        auto* button = new QRadioButton(ShownCaption(caption));
        button->setObjectName(Shown(group.Name + "(" + std::to_string(index) + ")"));
        NameAfter(*button, caption);
        buttons->addButton(button, index++);
        row->addWidget(button);
    }
    row->addStretch();
    NameAfter(*widget, name);
    Follow(group, *widget, Paint::Ground, [&group, buttons] {
        const QSignalBlocker quiet(buttons);
        buttons->button(group.Index())->setChecked(true);
    });
    QObject::connect(buttons, &QButtonGroup::idToggled, widget, [&group](int index, bool checked) {
        if (checked) ByHand(group, [&] { group.Select(index); });
    });
    return widget;
}

} // namespace halyard
