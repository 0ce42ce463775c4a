#include "surface/qt/AppLook.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

namespace halyard {

namespace {

constexpr int IconSide = 128;

/// The flag at its mast, for machines on which the program has not been installed.
QPixmap Flag() {
    QPixmap picture(IconSide, IconSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x14678d));
    painter.drawRoundedRect(4, 4, 120, 120, 26, 26);
    painter.setPen(QPen(QColor(0xcaeff9), 8, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(40, 22, 40, 112);
    QPainterPath flag(QPointF(56, 24));
    flag.cubicTo(70, 15, 84, 36, 108, 26);
    flag.lineTo(97, 42);
    flag.lineTo(108, 59);
    flag.cubicTo(86, 69, 72, 48, 56, 58);
    flag.closeSubpath();
    painter.setPen(QPen(QColor(0xcaeff9), 3));
    painter.setBrush(QColor(0xb81111));
    painter.drawPath(flag);
    return picture;
}

class LookStyle : public QProxyStyle {
  public:
    LookStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        if (hint == SH_LineEdit_PasswordCharacter) return '*';
        return QProxyStyle::styleHint(hint, option, widget, more);
    }
};

} // namespace

void SetLook(QApplication& application) {
    QApplication::setApplicationName(QStringLiteral("halyard"));
    QApplication::setDesktopFileName(QStringLiteral("org.halyard.Halyard"));
    QApplication::setStyle(new LookStyle);
    QApplication::setPalette(QApplication::style()->standardPalette());
    application.setQuitOnLastWindowClosed(false); // it works on while hidden
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.halyard.Halyard"), QIcon(Flag())));
}

} // namespace halyard
