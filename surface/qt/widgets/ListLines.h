#pragma once

// The lines of a list box for Qt's views. Nothing is copied: a line is asked for when it is painted.

#include "platform/Controls.h"

#include <QAbstractListModel>

namespace halyard {

class ListLines : public QAbstractListModel {
  public:
    /// Listens to the list until it is destroyed; the list must live longer.
    explicit ListLines(ListBox& list);
    ~ListLines() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// True while lines come or go: what the view then selects is no choice of a person's.
    bool Changing() const { return changing; }

  private:
    void Inserted(int row);
    void Removed(int row);

    ListBox& list;
    int rows;
    bool changing = false;
};

} // namespace halyard
