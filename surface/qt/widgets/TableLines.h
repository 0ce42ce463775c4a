#pragma once

// The lines of a table for Qt's views. Nothing is copied: a cell is asked for when it is painted.

#include "platform/Table.h"

#include <QAbstractTableModel>

namespace halyard {

class TableLines : public QAbstractTableModel {
  public:
    /// Listens to the table until it is destroyed; the table must live longer.
    explicit TableLines(TableBox& table);
    ~TableLines() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// A tick, as by hand.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    /// True while lines come or go: what the view then selects is no choice of a person's.
    bool Changing() const { return changing; }

    /// The first lines are about to go, or have gone.
    std::function<void()> onFirstGoing;
    std::function<void(int count)> onFirstGone;

  private:
    TableBox& table;
    int rows;
    bool changing = false;
};

} // namespace halyard
