#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/PermGrid.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmUniPerms.h"

#include <QPushButton>

namespace halyard {

std::unique_ptr<FormWindow> DrawUniPerms(frmUniPerms& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    window->mayClose = [&model] { return model.MayDrop(); };
    auto* perms = PermGrid(model.chkPerm);
    auto* foot = Row({Room(), BindButton(model.cmdSetUniPerms), BindButton(model.cmdDefaultUniPerms)});
    auto* column = new QVBoxLayout(window.get());
    column->setSpacing(12);
    Put(*column, {perms, Room(), foot});
    return window;
}

} // namespace halyard
