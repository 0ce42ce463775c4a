#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/qt/widgets/PageArea.h"
#include "surface/windows/frmChatSends.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace halyard {

namespace {

/// The boxes of one page, each with its number before it.
QWidget* Page(frmChatSends& model, int page) {
    auto& frame = model.FrameTabs[static_cast<std::size_t>(page)];
    auto* place = BindPlace(frame, "Page " + std::to_string(page + 1));
    auto* grid = new QGridLayout(place);
    grid->setContentsMargins(0, 0, 0, Gap);
    int row = 0;
    for (int box = 0; box < static_cast<int>(model.txtChatSend.size()); ++box) {
        if (frmChatSends::PageOf(box) != page) continue;
        const auto number = std::to_string(box + 1);
        auto* line = BindLine(model.txtChatSend[static_cast<std::size_t>(box)], "Chatsend " + number);
        WideFor(*line, 64);
        auto* label = new QLabel(Shown(number));
        label->setObjectName(Shown("lblNumber(" + number + ")"));
        grid->addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(line, row++, 1);
    }
    grid->setRowStretch(row, 1);
    return place;
}

QLayout* PageButtons(frmChatSends& model) {
    auto* row = Row({BindButton(model.cmdPrevious), Room()});
    row->setSpacing(4);
    for (auto& button : model.cmdPage) {
        auto* widget = BindButton(button);
        auto bold = widget->font();
        bold.setBold(true);
        widget->setFixedWidth(QFontMetrics(bold).horizontalAdvance(QStringLiteral("13")) + 18);
        row->addWidget(widget);
    }
    Put(*row, {Room(), BindButton(model.cmdNext)});
    return row;
}

} // namespace

std::unique_ptr<FormWindow> DrawChatSends(frmChatSends& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    window->mayClose = [&model] { return model.MayDrop(); };
    auto* area = new PageArea;
    for (int page = 0; auto& frame : model.FrameTabs) area->AddPage(Page(model, page++), frame);
    auto* help = BindButton(model.cmdHelp);
    help->setFixedWidth(help->sizeHint().height() + Gap);
    auto* foot =
        Row({help, Room(), BindButton(model.cmdSetChatsends), BindButton(model.cmdDefaultChatsends)});
    Fill(window.get(), {Item(area, 1), PageButtons(model), foot});
    return window;
}

} // namespace halyard
