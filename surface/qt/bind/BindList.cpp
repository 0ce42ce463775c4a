#include "surface/look/ControlArrays.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/widgets/ListLines.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace halyard {

namespace {

class ListView : public QListView {
  public:
    explicit ListView(ListBox& list) : list(list), lines(list) {
        setModel(&lines);
        setUniformItemSizes(true);
        setEditTriggers(NoEditTriggers);
        setTextElideMode(Qt::ElideRight);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    ~ListView() override { setModel(nullptr); }

    void Sync() {
        const QSignalBlocker quiet(this);
        const auto wanted = lines.index(list.ListIndex());
        if (!wanted.isValid()) return Deselect();
        if (selectionModel()->isSelected(wanted)) return;
        syncing = true;
        setCurrentIndex(wanted);
        syncing = false;
    }

  protected:
    void selectionChanged(const QItemSelection& chosen, const QItemSelection& left) override {
        QListView::selectionChanged(chosen, left);
        if (syncing || lines.Changing()) return;
        const auto rows = selectionModel()->selectedIndexes();
        ByHand(list, [&] { list.Select(rows.isEmpty() ? -1 : rows.front().row()); });
    }

    void mousePressEvent(QMouseEvent* event) override {
        const int before = list.ListIndex();
        QListView::mousePressEvent(event);
        if (event->button() == Qt::RightButton) Told(list.MouseDown, RightButton);
        // Another line tells of itself by becoming the selected one.
        if (event->button() == Qt::LeftButton && before >= 0 && LineAt(*event) == before && list.Click)
            ByHand(list, [this] { list.Click(); });
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QListView::mouseDoubleClickEvent(event);
        if (event->button() == Qt::LeftButton && LineAt(*event) >= 0 && list.DblClick)
            ByHand(list, [this] { list.DblClick(); });
    }

    /// The key that opens menus.
    void contextMenuEvent(QContextMenuEvent* event) override {
        if (event->reason() == QContextMenuEvent::Keyboard) Told(list.MouseDown, RightButton);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (event->key() == Qt::Key_Delete)
            Told(list.KeyDown, DeleteKey);
        else if (enter && list.DblClick && !list.KeyDown) // where no key does what a double click does
            ByHand(list, [this] { list.DblClick(); });
        else
            QListView::keyPressEvent(event);
        // Where the caret stood on a line already, no key has chosen it.
        if (list.ListIndex() < 0 && currentIndex().isValid() && IsMove(event->key()))
            selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    }

  private:
    int LineAt(const QMouseEvent& event) const { return indexAt(event.position().toPoint()).row(); }

    void Told(const std::function<void(int)>& handler, int what) {
        if (handler) ByHand(list, [&] { handler(what); });
    }

    static bool IsMove(int key) {
        return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End;
    }

    void Deselect() {
        if (!selectionModel()->hasSelection()) return;
        syncing = true;
        clearSelection();
        syncing = false;
    }

    ListBox& list;
    ListLines lines;
    bool syncing = false;
};

} // namespace

QListView* BindList(ListBox& list, const std::string& name) {
    auto* widget = new ListView(list);
    NameAfter(*widget, name);
    Follow(list, *widget, Paint::Field, [widget] { widget->Sync(); });
    return widget;
}

} // namespace halyard
