#include "surface/qt/bind/Follow.h"

#include "base/Latin1.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include <memory>

namespace halyard {

namespace {

constexpr int Transparent = -1;
constexpr int HighlightText = 14; // numbers of system colours
constexpr int ButtonText = 18;

QColor Mixed(const QColor& one, const QColor& other, int percentOfOne) {
    const auto mix = [=](int a, int b) { return (a * percentOfOne + b * (100 - percentOfOne)) / 100; };
    return QColor(mix(one.red(), other.red()), mix(one.green(), other.green()),
                  mix(one.blue(), other.blue()));
}

/// What a disabled widget looks like: paler, and still to be read.
void PaintDisabled(QPalette& palette, Paint paint, QPalette::ColorRole ground, QPalette::ColorRole text) {
    const auto behind = palette.color(QPalette::Active, ground);
    const auto letters = palette.color(QPalette::Active, text);
    const auto paler = Mixed(behind, palette.color(QPalette::Active, QPalette::Window), 55);
    const bool isField = paint == Paint::Field;
    if (isField || paint == Paint::Button) palette.setColor(QPalette::Disabled, ground, paler);
    palette.setColor(QPalette::Disabled, text, isField ? letters.darker(190) : Mixed(letters, behind, 62));
}

/// What the widget shows now of the properties that cost something to set.
struct Common {
    bool visible = true;
    int back = 0;
    int fore = 0;
};

void KeepCommon(const Control& control, QWidget& widget, Paint paint, Common& shown) {
    if (!control.Caption().empty()) NameAfter(widget, control.Caption());
    widget.setEnabled(control.Enabled());
    if (shown.back != control.BackColor() || shown.fore != control.ForeColor()) {
        shown.back = control.BackColor();
        shown.fore = control.ForeColor();
        PaintWidget(widget, paint, shown.back, shown.fore);
    }
    if (shown.visible == control.Visible()) return;
    shown.visible = control.Visible();
    widget.setVisible(shown.visible);
}

} // namespace

QString Shown(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

std::string Typed(const QString& text) { return FromUtf8(text.toStdString()); }

QString ShownCaption(const std::string& caption) { return Shown(caption).replace('&', QLatin1String("&&")); }

QColor ToColor(int color) {
    if (color >= 0) return QColor(color & 255, (color >> 8) & 255, (color >> 16) & 255);
    const auto palette = QApplication::palette();
    switch (color & 255) {
    case HighlightText: return palette.color(QPalette::Active, QPalette::HighlightedText);
    case ButtonText: return palette.color(QPalette::Active, QPalette::ButtonText);
    default: return palette.color(QPalette::Active, QPalette::WindowText);
    }
}

void PaintWidget(QWidget& widget, Paint paint, int back, int fore) {
    auto palette = widget.palette();
    const auto [ground, text] = paint == Paint::Field    ? std::pair(QPalette::Base, QPalette::Text)
                                : paint == Paint::Button ? std::pair(QPalette::Button, QPalette::ButtonText)
                                                         : std::pair(QPalette::Window, QPalette::WindowText);
    if (back != Transparent) palette.setColor(ground, ToColor(back));
    palette.setColor(text, ToColor(fore));
    PaintDisabled(palette, paint, ground, text);
    if (paint == Paint::Label && back != Transparent) widget.setAutoFillBackground(true);
    widget.setPalette(palette);
}

void NameAfter(QWidget& widget, const std::string& caption) {
    const auto name = Shown(caption);
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

void Follow(Control& control, QWidget& widget, Paint paint, std::function<void()> sync) {
    widget.setObjectName(Shown(control.Name));
    if (!control.ToolTip.empty()) widget.setToolTip(Shown(control.ToolTip));
    control.onView = [&control, &widget, paint, sync = std::move(sync), shown = std::make_shared<Common>()] {
        sync();
        KeepCommon(control, widget, paint, *shown);
    };
    control.onView();
    QObject::connect(&widget, &QObject::destroyed, [&control] { control.onView = nullptr; });
}

} // namespace halyard
