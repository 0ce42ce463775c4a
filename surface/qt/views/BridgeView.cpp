// What the bridge adds below the panels: the row of the network and the foot line.

#include "surface/bridge/FootLine.h"
#include "surface/bridge/NetworkRow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/widgets/FootView.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace halyard {

namespace {

constexpr int StateLines = 3;

/// A text that may be empty keeps a name by which it is known.
void NameOr(QWidget& widget, const std::string& text, const char* name) {
    NameAfter(widget, text.empty() ? name : text);
}

} // namespace

QWidget* DrawNetworkRow(NetworkRow& row) {
    auto* place = new QWidget;
    auto* choice = BindChoice(row.cmbNetwork, row.lblNetwork.Caption());
    choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* state = BindValue(row.lblNetworkState, StateLines);
    auto follow = row.lblNetworkState.onView;
    row.lblNetworkState.onView = [follow, state, &row] {
        follow();
        NameOr(*state, row.lblNetworkState.Caption(), "State of the network");
    };
    row.lblNetworkState.onView();
    Fill(place, {Row({BindLabel(row.lblNetwork), Item(choice, 1), BindButton(row.cmdNetwork)}), state});
    auto margins = place->layout()->contentsMargins();
    margins.setTop(0);
    margins.setBottom(2);
    place->layout()->setContentsMargins(margins);
    return place;
}

QWidget* DrawFootLine(FootLine& foot) {
    auto* widget = new FootView;
    Follow(foot.lblFoot, *widget, Paint::Label, [&foot, widget] {
        const auto& text = foot.lblFoot.Caption();
        widget->setText(Shown(text));
        widget->setToolTip(text.empty() ? QString() : "<p>" + Shown(text).toHtmlEscaped() + "</p>");
        NameOr(*widget, text, "Foot line");
    });
    QObject::connect(widget, &QAbstractButton::clicked, widget, [&foot] {
        if (foot.lblFoot.Click) ByHand(foot.lblFoot, [&] { foot.lblFoot.Click(); });
    });
    return widget;
}

} // namespace halyard
