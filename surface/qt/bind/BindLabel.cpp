#include "surface/qt/bind/Bind.h"
#include "surface/qt/widgets/PressLabel.h"
#include "surface/qt/widgets/ValueLabel.h"

namespace halyard {

namespace {

QString Lines(const std::string& caption) {
    return Shown(caption).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

/// A caption that stands upright, a letter a line, read as the words that it is.
QString Words(QString caption) {
    return caption.replace(QLatin1String("\n\n"), QLatin1String(" ")).remove('\n').trimmed();
}

} // namespace

QLabel* BindLabel(Label& label) {
    auto* widget = new QLabel;
    widget->setTextFormat(Qt::PlainText);
    Follow(label, *widget, Paint::Label, [&label, widget] { widget->setText(Lines(label.Caption())); });
    return widget;
}

QLabel* BindValue(Label& label, int lines) {
    auto* widget = new ValueLabel(lines);
    Follow(label, *widget, Paint::Label, [&label, widget] { widget->setText(Lines(label.Caption())); });
    return widget;
}

QAbstractButton* BindPressed(Label& label, Press look) {
    auto* widget = new PressLabel(look);
    const auto paint = look == Press::Link ? Paint::Label : Paint::Button;
    Follow(label, *widget, paint, [&label, widget] { widget->setText(Lines(label.Caption())); });
    widget->setAccessibleName(Words(Lines(label.Caption())));
    QObject::connect(widget, &QAbstractButton::clicked, widget, [&label] {
        if (label.Click) ByHand(label, [&] { label.Click(); });
    });
    return widget;
}

} // namespace halyard
