#include "surface/qt/bind/Bind.h"
#include "surface/qt/widgets/TableLines.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace halyard {

namespace {

constexpr int RowRoom = 6;       // pixels between the letters of two lines
constexpr int LeastLetters = 10; // of the column that takes what is left

class RoomyLines : public QStyledItemDelegate {
  public:
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, option.fontMetrics.lineSpacing() + RowRoom};
    }
};

class TableView : public QTreeView {
  public:
    explicit TableView(TableBox& table) : table(table), lines(table) {
        setModel(&lines);
        setItemDelegate(&roomy);
        setRootIsDecorated(false);
        setItemsExpandable(false);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        setEditTriggers(NoEditTriggers);
        setTextElideMode(Qt::ElideRight);
        setSelectionBehavior(SelectRows);
        setTabKeyNavigation(false);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        SetWidths();
        lines.onFirstGoing = [this] { top = verticalScrollBar()->value(); };
        lines.onFirstGone = [this](int count) { // what is seen stays where it is seen
            executeDelayedItemsLayout();
            verticalScrollBar()->setValue(top - count);
        };
        connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
            if (value == verticalScrollBar()->maximum() && !lines.Changing() && this->table.AtEnd)
                this->table.AtEnd();
        });
    }
    ~TableView() override { setModel(nullptr); }

    void Sync() {
        const auto wanted = lines.index(table.Index(), 0);
        if (wanted.row() == currentIndex().row() && wanted.isValid() == selectionModel()->hasSelection())
            return;
        syncing = true;
        if (wanted.isValid())
            setCurrentIndex(wanted);
        else
            selectionModel()->clear();
        syncing = false;
    }

  protected:
    void selectionChanged(const QItemSelection& chosen, const QItemSelection& left) override {
        QTreeView::selectionChanged(chosen, left);
        if (syncing || lines.Changing()) return;
        const auto rows = selectionModel()->selectedRows();
        ByHand(table, [&] { table.Choose(rows.isEmpty() ? -1 : rows.front().row()); });
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QTreeView::mouseDoubleClickEvent(event);
        const auto at = indexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && at.isValid()) Entered();
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        if (event->matches(QKeySequence::Copy)) return Pressed(TableBox::CopyKey);
        if (key == Qt::Key_Return || key == Qt::Key_Enter) return Entered();
        if (key == Qt::Key_Space) return Tick();
        if (key == Qt::Key_Backspace) return Pressed(TableBox::BackKey);
        const bool isLetter = key >= Qt::Key_A && key <= Qt::Key_Z;
        if (isLetter && !(event->modifiers() & ~Qt::ShiftModifier)) return Pressed(key);
        const bool isStep = key == Qt::Key_Up || key == Qt::Key_Down;
        // Where the caret stands on a line already, the first step chooses that one.
        if (!isStep || table.Index() >= 0 || !currentIndex().isValid()) QTreeView::keyPressEvent(event);
        if (key == Qt::Key_Home) Pressed(TableBox::HomeKey);
        if ((isStep || key == Qt::Key_Home) && table.Index() < 0 && currentIndex().isValid())
            selectionModel()->select(currentIndex(),
                                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

  private:
    void SetWidths() {
        const int letter = fontMetrics().averageCharWidth();
        header()->setMinimumSectionSize(4 * letter);
        header()->setStretchLastSection(false);
        header()->setSectionsMovable(false);
        for (int column = 0; column < lines.columnCount(); ++column) {
            const auto letters = table.Columns[static_cast<std::size_t>(column)].letters;
            header()->setSectionResizeMode(column,
                                           letters == 0 ? QHeaderView::Stretch : QHeaderView::Interactive);
            header()->resizeSection(column, (letters == 0 ? LeastLetters : letters) * letter);
        }
    }

    void Entered() {
        if (table.DblClick) ByHand(table, [this] { table.DblClick(); });
    }

    void Pressed(int key) {
        if (table.KeyDown) ByHand(table, [this, key] { table.KeyDown(key); });
    }

    void Tick() {
        const int row = currentIndex().row();
        const bool on = table.At(row).tick == TableBox::Tick::On;
        ByHand(table, [&] { table.SetTick(row, !on); });
    }

    TableBox& table;
    TableLines lines;
    RoomyLines roomy;
    int top = 0;
    bool syncing = false;
};

} // namespace

QTreeView* BindTable(TableBox& table, const std::string& name) {
    auto* widget = new TableView(table);
    NameAfter(*widget, name);
    Follow(table, *widget, Paint::Field, [widget] { widget->Sync(); });
    return widget;
}

QProgressBar* BindGauge(Gauge& gauge, const std::string& name) {
    auto* widget = new QProgressBar;
    widget->setTextVisible(false);
    NameAfter(*widget, name);
    Follow(gauge, *widget, Paint::Field, [&gauge, widget] {
        widget->setRange(0, qMax(1, gauge.Most()));
        widget->setValue(gauge.Value());
    });
    return widget;
}

} // namespace halyard
