#include "surface/qt/widgets/ListLines.h"

#include "surface/qt/bind/Follow.h"

namespace halyard {

ListLines::ListLines(ListBox& list) : list(list), rows(list.ListCount()) {
    list.onInserted = [this](int row) { Inserted(row); };
    list.onRemoved = [this](int row) { Removed(row); };
}

ListLines::~ListLines() { list.onInserted = list.onRemoved = nullptr; }

int ListLines::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows; }

QVariant ListLines::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const auto line = Shown(list.List(index.row()));
    // A tool tip would be taken for markup when it looks like it.
    return role == Qt::ToolTipRole ? "<p>" + line.toHtmlEscaped() + "</p>" : line;
}

void ListLines::Inserted(int row) {
    changing = true;
    beginInsertRows({}, row, row);
    ++rows;
    endInsertRows();
    changing = false;
}

void ListLines::Removed(int row) {
    changing = true;
    if (row < 0) {
        beginResetModel();
        rows = 0;
        endResetModel();
    } else {
        beginRemoveRows({}, row, row);
        --rows;
        endRemoveRows();
    }
    changing = false;
}

} // namespace halyard
