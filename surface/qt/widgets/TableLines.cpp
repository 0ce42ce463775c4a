#include "surface/qt/widgets/TableLines.h"

#include "surface/qt/bind/ByHand.h"
#include "surface/qt/bind/Follow.h"

namespace halyard {

TableLines::TableLines(TableBox& table) : table(table), rows(table.Count()) {
    table.onReset = [this] {
        changing = true;
        beginResetModel();
        rows = this->table.Count();
        endResetModel();
        changing = false;
    };
    table.onAdded = [this](int count) {
        changing = true;
        beginInsertRows({}, rows, rows + count - 1);
        rows += count;
        endInsertRows();
        changing = false;
    };
    table.onFirstGone = [this](int count) {
        changing = true;
        if (onFirstGoing) onFirstGoing();
        beginRemoveRows({}, 0, count - 1);
        rows -= count;
        endRemoveRows();
        if (onFirstGone) onFirstGone(count);
        changing = false;
    };
    table.onChanged = [this](int row) { dataChanged(index(row, 0), index(row, columnCount() - 1)); };
}

TableLines::~TableLines() {
    table.onReset = nullptr;
    table.onAdded = table.onFirstGone = table.onChanged = nullptr;
}

int TableLines::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows; }

int TableLines::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table.Columns.size());
}

QVariant TableLines::data(const QModelIndex& index, int role) const {
    const auto& line = table.At(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::CheckStateRole && column == 0 && line.tick != TableBox::Tick::None)
        return line.tick == TableBox::Tick::On ? Qt::Checked : Qt::Unchecked;
    if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || column >= line.cells.size()) return {};
    const auto cell = Shown(line.cells[column]);
    // A tool tip would be taken for markup when it looks like it.
    return role == Qt::ToolTipRole ? "<p>" + cell.toHtmlEscaped() + "</p>" : cell;
}

QVariant TableLines::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section >= columnCount()) return {};
    return Shown(table.Columns[static_cast<std::size_t>(section)].heading);
}

Qt::ItemFlags TableLines::flags(const QModelIndex& index) const {
    auto flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    if (index.column() == 0 && table.At(index.row()).tick != TableBox::Tick::None)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool TableLines::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || index.column() != 0) return false;
    ByHand(table, [&] { table.SetTick(index.row(), value.toInt() == Qt::Checked); });
    return true;
}

} // namespace halyard
