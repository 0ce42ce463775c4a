#pragma once

// Few words for laying out a window: rows and columns that hold widgets and other layouts.

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>

#include <initializer_list>
#include <variant>

namespace halyard {

inline constexpr int Gap = 8; // pixels between things that belong together

/// What stands in a row or a column. A null widget is room that stretches.
struct Item {
    Item(QWidget* widget, int stretch = 0) : widget(widget), stretch(stretch) {}
    Item(QLayout* layout, int stretch = 0) : layout(layout), stretch(stretch) {}
    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
    int stretch;
};

inline Item Room() { return Item(static_cast<QWidget*>(nullptr), 1); }

inline void Put(QBoxLayout& box, std::initializer_list<Item> items) {
    for (const auto& item : items) {
        if (item.widget)
            box.addWidget(item.widget, item.stretch);
        else if (item.layout)
            box.addLayout(item.layout, item.stretch);
        else
            box.addStretch(item.stretch);
    }
}

inline QHBoxLayout* Row(std::initializer_list<Item> items) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    Put(*row, items);
    return row;
}

inline QVBoxLayout* Column(std::initializer_list<Item> items) {
    auto* column = new QVBoxLayout;
    column->setSpacing(Gap);
    Put(*column, items);
    return column;
}

/// Fills a window, page or group with a column.
template <typename Place>
Place* Fill(Place* place, std::initializer_list<Item> items) {
    auto* column = new QVBoxLayout(place);
    column->setSpacing(6);
    Put(*column, items);
    return place;
}

/// So many average letters wide, at least.
inline void WideFor(QWidget& widget, int letters) {
    widget.setMinimumWidth(widget.fontMetrics().averageCharWidth() * letters);
}

/// So many lines high, at least.
inline void HighFor(QWidget& widget, int lines) {
    widget.setMinimumHeight(widget.fontMetrics().lineSpacing() * lines + 8);
}

/// Buttons of one width, so that they stand as a set.
template <typename Button>
void SameWidth(std::initializer_list<Button*> buttons) {
    int widest = 0;
    for (auto* button : buttons) widest = qMax(widest, button->sizeHint().width());
    for (auto* button : buttons) button->setMinimumWidth(widest);
}

} // namespace halyard
