#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmConsole.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>

namespace halyard {

std::unique_ptr<FormWindow> DrawConsole(frmConsole& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    BindMenu(model.mnuCommands, window.get());
    auto* log = BindLog(model.txtChatMsg, "Chat log");
    WideFor(*log, 56);
    HighFor(*log, 16);
    auto* send = BindLine(model.txtSend, "Message");
    auto* people = BindList(model.lstPeopleHere, "People Here");
    WideFor(*people, 18);
    auto* name = BindValue(model.lblChatName);
    auto lettering = name->font();
    lettering.setBold(true);
    name->setFont(lettering);
    auto* grid = new QGridLayout;
    grid->setSpacing(Gap);
    grid->addWidget(name, 0, 0);
    grid->addWidget(BindLabel(model.lblPeopleHere), 0, 1);
    grid->addWidget(log, 1, 0, 2, 1);
    grid->addWidget(people, 1, 1);
    grid->addWidget(BindButton(model.cmdBan), 2, 1);
    grid->addWidget(send, 3, 0);
    grid->addLayout(Row({BindButton(model.cmdIgnore), BindButton(model.cmdUnignore)}), 3, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 1);
    auto* foot = Row({BindButton(model.cmdClearText), Room(), BindButton(model.cmdClose)});
    Fill(window.get(), {Item(grid, 1), foot});
    QWidget::setTabOrder(log, send);
    send->setFocus();
    return window;
}

} // namespace halyard
