#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmIMComs.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace halyard {

std::unique_ptr<FormWindow> DrawIMComs(frmIMComs& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* log = BindLog(model.txtIMs, "Instant messages");
    WideFor(*log, 56);
    HighFor(*log, 12);
    Fill(window.get(),
         {Item(log, 1), Row({BindButton(model.cmdIMComs), Room(), BindButton(model.cmdClear)})});
    return window;
}

} // namespace halyard
