#include "surface/frmNotice.h"
#include "surface/qt/Bind.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/Lay.h"
#include "surface/qt/Windows.h"

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
