// What the bridge adds below the panels: the row of the network and the foot line.

#include "surface/bridge/FootLine.h"
#include "surface/bridge/NetworkRow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/widgets/FootView.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace halyard {

namespace {

constexpr int StateLines = 3;
constexpr int TellLetters = 16; // average letters, at least
constexpr int FieldLetters = 9;

/// A text that may be empty keeps a name by which it is known.
void NameOr(QWidget& widget, const std::string& text, const char* name) {
    NameAfter(widget, text.empty() ? name : text);
}

/// A label of the foot line. `name` is that of one without words, and `says` what stands before the words for
/// who can't see where they stand.
FootView* BindFoot(Label& label, int letters, const std::string& name, const std::string& says) {
    auto* widget = new FootView(letters);
    auto sync = [&label, widget, name] {
        const auto& text = label.Caption();
        if (widget->text() == Shown(text)) return;
        widget->setText(Shown(text));
        widget->setToolTip(text.empty() ? QString() : "<p>" + Shown(text).toHtmlEscaped() + "</p>");
        widget->updateGeometry();
    };
    Follow(label, *widget, Paint::Label, sync);
    label.onView = [follow = label.onView, &label, widget, name, says] {
        follow();
        NameOr(*widget, label.Caption().empty() ? "" : says + label.Caption(), name.c_str());
    };
    label.onView();
    QObject::connect(widget, &QAbstractButton::clicked, widget, [&label] {
        if (label.Click) ByHand(label, [&] { label.Click(); });
    });
    return widget;
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
    auto* told = BindFoot(foot.lblFoot, TellLetters, "Foot line", "");
    auto* standing = BindPlace(foot.FrameStanding, "How the bot is");
    auto* fields = new QHBoxLayout(standing);
    for (std::size_t index = 0; auto& label : foot.lblStanding) {
        const std::string name = FootFieldName(index++);
        auto* field = BindFoot(label, FieldLetters, name, name + ": ");
        if (fields->count() > 0)
            field->setFocusPolicy(Qt::ClickFocus); // one stop of Tab's, then Left and Right
        fields->addWidget(field);
    }
    auto* place = BindPlace(foot.FrameFoot, "Foot line");
    auto* row = new QHBoxLayout(place);
    row->addWidget(told, 1);
    row->addWidget(standing, 1);
    for (auto* layout : {fields, row}) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(2);
    }
    row->setContentsMargins(3, 1, 3, 3);
    // Who stands on the one when it goes stands on the other.
    foot.FrameStanding.onView = [follow = foot.FrameStanding.onView, &foot, standing, told, fields] {
        const bool comes = foot.FrameStanding.Visible() && !standing->isVisible();
        const bool goes =
            !foot.FrameStanding.Visible() && standing->isAncestorOf(QApplication::focusWidget());
        const bool back = comes && told->hasFocus();
        if (goes) told->setFocus();
        follow();
        if (back) fields->itemAt(0)->widget()->setFocus();
    };
    return place;
}

} // namespace halyard
