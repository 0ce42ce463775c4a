#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmNotice.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace halyard {

std::unique_ptr<FormWindow> DrawNotice(frmNotice& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* log = BindLog(model.txtNotices, "Notices");
    WideFor(*log, 48);
    HighFor(*log, 7);
    Fill(window.get(), {Item(log, 1), Row({Room(), BindButton(model.cmdStop)})});
    return window;
}

} // namespace halyard
