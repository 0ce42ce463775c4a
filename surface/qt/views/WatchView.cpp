#include "surface/bridge/watch/WatchWindow.h"
#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/widgets/PageArea.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

namespace halyard {

namespace {

/// A text that may be empty keeps a name by which it is known.
QLabel* NamedValue(Label& label, const char* name, int lines = 1) {
    auto* widget = BindValue(label, lines);
    if (label.Caption().empty()) NameAfter(*widget, name);
    return widget;
}

QWidget* DrawNow(NowPage& page) {
    auto* table = BindTable(page.tblNow, "Where everything stands");
    HighFor(*table, 14);
    auto* chosen = BindReading(page.txtNow, "The chosen line");
    HighFor(*chosen, 6);
    return Fill(BindPlace(page.FrameNow, page.FrameNow.Caption()), {Item(table, 3), Item(chosen, 1)});
}

QWidget* DrawWaiting(WaitingPage& page) {
    auto* waiting = BindTable(page.tblWaiting, "What waits");
    HighFor(*waiting, 10);
    auto* gone = BindTable(page.tblGone, "What never went");
    HighFor(*gone, 6);
    return Fill(BindPlace(page.FrameWaiting, page.FrameWaiting.Caption()),
                {NamedValue(page.lblWaiting, "How much waits"), Item(waiting, 3),
                 Row({Item(NamedValue(page.lblDropped, "What was dropped last"), 1), BindButton(page.cmdDrop),
                      BindButton(page.cmdDropPerson), BindButton(page.cmdDropOp)}),
                 NamedValue(page.lblGone, "What never went"), Item(gone, 2)});
}

QWidget* DrawAlarms(AlarmPage& page) {
    auto* ringing = BindList(page.lstRinging, page.lblRinging.Caption());
    HighFor(*ringing, 6);
    auto* rang = BindList(page.lstRang, page.lblRang.Caption());
    HighFor(*rang, 10);
    return Fill(BindPlace(page.FrameAlarms, page.FrameAlarms.Caption()),
                {Row({BindLabel(page.lblRinging), Room(), BindButton(page.cmdDismiss)}), Item(ringing, 1),
                 Row({BindLabel(page.lblRang), Room(), BindButton(page.cmdOlder)}), Item(rang, 2)});
}

/// Who stands in the one of two places when it gives way to the other goes on in `first` there.
void HandOver(Frame& comes, const QWidget& goes, QWidget& first) {
    comes.onView = [follow = comes.onView, &comes, &goes, &first] {
        follow();
        if (comes.Visible() && goes.isAncestorOf(QApplication::focusWidget())) first.setFocus();
    };
}

QWidget* DrawHistory(HistoryPage& page) {
    auto* bars = BindStrips(page.strips);
    auto* figures = BindTable(page.tblHistory, "The history");
    auto* strips = Fill(BindPlace(page.FrameStrips, page.FrameStrips.Caption()),
                        {Item(bars, 1), NamedValue(page.lblPoint, "At the point", 3)});
    auto* table = Fill(BindPlace(page.FrameTable, page.FrameTable.Caption()), {Item(figures, 1)});
    for (auto* place : {strips, table}) place->layout()->setContentsMargins(0, 0, 0, 0);
    HandOver(page.FrameTable, *strips, *figures);
    HandOver(page.FrameStrips, *table, *bars);
    return Fill(BindPlace(page.FrameHistory, page.FrameHistory.Caption()),
                {Row({BindOptions(page.optSpan, "How far back"), Room(), BindButton(page.cmdTable),
                      BindButton(page.cmdLedger)}),
                 Item(strips, 1), Item(table, 1)});
}

} // namespace

std::unique_ptr<FormWindow> DrawWatch(WatchWindow& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* pages = new PageArea;
    auto* now = DrawNow(model.now);
    WideFor(*now, 165);
    pages->AddPage(now, model.now.FrameNow);
    pages->AddPage(DrawWaiting(model.waiting), model.waiting.FrameWaiting);
    pages->AddPage(DrawAlarms(model.alarms), model.alarms.FrameAlarms);
    pages->AddPage(DrawHistory(model.history), model.history.FrameHistory);
    Fill(window.get(), {Row({BindOptions(model.optPage, "What of the watch"), Room()}), Item(pages, 1)});
    return window;
}

} // namespace halyard
