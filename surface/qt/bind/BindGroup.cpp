#include "surface/qt/bind/Bind.h"

#include <QGroupBox>
#include <QPainter>
#include <QStyleOptionGroupBox>

namespace halyard {

namespace {

constexpr qreal Rounding = 5;
constexpr int Indent = 8;     // of the title
constexpr int EdgeLight = 80; // of 255

/// A group that stands out on any ground: a light edge with its title above.
class GroupView : public QGroupBox {
  protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        const auto part = [&](QStyle::SubControl control) {
            return style()->subControlRect(QStyle::CC_GroupBox, &option, control, this);
        };
        auto light = palette().color(QPalette::WindowText);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        light.setAlpha(EdgeLight);
        painter.setPen(light);
        const auto frame = QRectF(part(QStyle::SC_GroupBoxFrame)).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawRoundedRect(frame, Rounding, Rounding);
        painter.setPen(palette().color(QPalette::WindowText));
        auto lettering = font();
        lettering.setBold(true);
        painter.setFont(lettering);
        const auto place = part(QStyle::SC_GroupBoxLabel);
        painter.drawText(QRect(Indent, place.top(), width() - 2 * Indent, place.height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                         painter.fontMetrics().elidedText(title(), Qt::ElideRight, width() - 2 * Indent,
                                                          Qt::TextShowMnemonic));
    }
};

} // namespace

QGroupBox* BindGroup(Frame& frame) {
    auto* widget = new GroupView;
    Follow(frame, *widget, Paint::Ground,
           [&frame, widget] { widget->setTitle(ShownCaption(frame.Caption())); });
    return widget;
}

QWidget* BindPlace(Frame& frame, const std::string& name) {
    auto* widget = new QWidget;
    NameAfter(*widget, name);
    Follow(frame, *widget, Paint::Ground, [] {});
    return widget;
}

} // namespace halyard
