#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmLocks.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace halyard {

std::unique_ptr<FormWindow> DrawLocks(frmLocks& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* lists = new QGridLayout;
    lists->setVerticalSpacing(Gap);
    const auto add = [&](TextBox& box, ListBox& list, const std::string& name) {
        auto* line = BindLine(box, "Add to " + name);
        auto* view = BindList(list, name);
        WideFor(*view, 36);
        HighFor(*view, 10);
        lists->addWidget(line, 0, 0);
        lists->addWidget(view, 1, 0);
    };
    add(model.txtAddLockOp, model.lstOpLocks, "Op Locks");
    add(model.txtAddLockImm, model.lstImmLocks, "Imm Locks");
    add(model.txtAddLockBan, model.lstBanLocks, "Ban Locks");
    auto* group = Fill(BindGroup(model.FrameMain), {Item(lists, 1)});
    auto* previous = BindButton(model.cmdPrevious);
    auto* next = BindButton(model.cmdNext);
    SameWidth({previous, next});
    Fill(window.get(), {Item(group, 1), Row({previous, Room(), next})});
    return window;
}

} // namespace halyard
