#include "surface/bridge/guards/GuardsWindow.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"

#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

namespace halyard {

std::unique_ptr<FormWindow> DrawGuards(GuardsWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* table = BindTable(model.tblGuards, "Guards");
    WideFor(*table, 84);
    HighFor(*table, 24);
    auto* words = BindReading(model.txtGuard, "What the chosen guard changes");
    HighFor(*words, 5);
    words->setMaximumHeight(words->minimumHeight());
    words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* kept = BindValue(model.lblKept);
    NameAfter(*kept, "What came of it");
    auto* paused = BindList(model.paused.lstPaused, "Entries that pause");
    HighFor(*paused, 3);
    paused->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Fill(window.get(),
         {Row({BindButton(model.cmdRecommended), BindLabel(model.lblRecommended), Room()}), Item(table, 1),
          words, Row({Item(kept, 1), BindButton(model.cmdAsNetwork)}), BindLabel(model.paused.lblPaused),
          Row({Item(paused, 1), BindButton(model.paused.cmdTakeBack), BindButton(model.paused.cmdResume)})});
    return window;
}

} // namespace halyard
