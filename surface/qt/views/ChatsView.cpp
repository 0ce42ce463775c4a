#include "surface/frmMain.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Panels.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace halyard {

namespace {

constexpr std::size_t FirstDataCaption = 4; // position in lblMisc

QWidget* ChatControl(frmMain& main) {
    auto& panel = main.chats;
    auto& boxes = main.options.Controls;
    const auto name = [&](std::size_t number) { return panel.lblMisc[number].Caption(); };
    auto* group = BindGroup(panel.FrameMisc[0]);
    auto* grid = new QGridLayout(group);
    grid->addWidget(BindLabel(panel.lblMisc[0]), 0, 0);
    grid->addWidget(BindLine(boxes.txtChat, name(0)), 0, 1, 1, 3);
    grid->addWidget(BindLabel(panel.lblMisc[1]), 1, 0);
    auto* exchange = BindLine(boxes.txtEx, name(1));
    auto* instance = BindLine(boxes.txtInstance, name(2));
    WideFor(*exchange, 6);
    WideFor(*instance, 6);
    grid->addWidget(exchange, 1, 1);
    grid->addWidget(BindLabel(panel.lblMisc[2]), 1, 2);
    grid->addWidget(instance, 1, 3);
    grid->addLayout(
        Row({BindButton(panel.cmdJoinChat), BindButton(panel.cmdLeaveChat), BindButton(panel.cmdCloseChat)}),
        2, 0, 1, 4);
    return group;
}

QWidget* Joined(frmMain& main) {
    auto& panel = main.chats;
    auto* list = BindList(panel.lstChats, panel.lblMisc[3].Caption());
    HighFor(*list, 4);
    auto* head = Row({BindLabel(panel.lblMisc[3]), Room(), BindLabel(panel.lblChatCount)});
    return Fill(BindGroup(panel.FrameMisc[1]), {head, Item(list, 1)});
}

QWidget* ChatData(frmMain& main) {
    auto& panel = main.chats;
    auto* group = BindGroup(panel.FrameMisc[3]);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(3);
    for (std::size_t index = 0; index < panel.lblChatData.size(); ++index) {
        auto& caption = panel.lblMisc[FirstDataCaption + index];
        auto* value = BindValue(panel.lblChatData[index]);
        value->setAccessibleDescription(Shown(caption.Caption()));
        grid->addWidget(BindLabel(caption), static_cast<int>(index), 0);
        grid->addWidget(value, static_cast<int>(index), 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(static_cast<int>(panel.lblChatData.size()), 1);
    return group;
}

QWidget* ChatOptions(frmMain& main) {
    auto& boxes = main.options.Controls;
    return Fill(
        BindGroup(main.chats.FrameMisc[4]),
        {BindCheck(boxes.chkAutoOwner), BindCheck(boxes.chkRejoinKick), BindCheck(boxes.chkRejoinError)});
}

} // namespace

QWidget* DrawChatsPanel(frmMain& main) {
    auto* page = BindPlace(main.FrameTabs[1], main.menus.mnuPanels[1].Caption());
    auto* status = Fill(BindGroup(main.chats.FrameMisc[2]), {BindValue(main.chats.lblChatStatus, 2)});
    auto* left = Column({ChatControl(main), Item(Joined(main), 1)});
    auto* right = Column({Item(ChatData(main), 1), ChatOptions(main)});
    return Fill(page, {Item(Row({Item(left, 1), Item(right, 1)}), 1), status});
}

} // namespace halyard
