#pragma once

// What every control and its widget have in common: names, tool tip, colours, enabled and visible. A widget
// follows its control as long as it lives; the control must live longer.

#include "platform/Controls.h"

#include <QColor>
#include <QString>

#include <functional>
#include <string>
#include <string_view>

class QWidget;

namespace halyard {

QString Shown(std::string_view text);
std::string Typed(const QString& text);
/// For the captions in which "&" would mark a letter.
QString ShownCaption(const std::string& caption);

/// Which parts of a widget the two colours of its control paint.
enum class Paint { Ground, Label, Field, Button };

/// A blue-green-red integer, or with a negative one the system's colour of that number.
QColor ToColor(int color);

/// Names the widget after the control and keeps the common properties; `sync` carries over the rest. It runs
/// now, and then whenever the control's view changes.
void Follow(Control& control, QWidget& widget, Paint paint, std::function<void()> sync);

/// The name by which a screen reader calls a widget whose control has no caption.
void NameAfter(QWidget& widget, const std::string& caption);

/// Sets how `paint` uses the colours; a `back` of -1 is transparent.
void PaintWidget(QWidget& widget, Paint paint, int back, int fore);

} // namespace halyard
